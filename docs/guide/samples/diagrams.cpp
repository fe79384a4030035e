#include "scenes.h"

#include <figura/FiguraDiagram.h>

#include <QMouseEvent>

using namespace Velmora::Figura;

namespace GuideSamples {
namespace {

template<typename ShapeType>
Shape *addStep(Diagram *diagram, const QString &text, const QColor &color, const QRect &place)
{
    auto *shape = diagram->add(new ShapeType, place); // belongs to the diagram from now on
    shape->setEnabledBGColor(color);
    Diagram::setText(shape, text);
    return shape;
}

PolylineConnection *connectSteps(Diagram *diagram, Figure *from, Figure *to)
{
    PolylineConnection *line = diagram->connect(from, to, Diagram::Routing::Manhattan);
    diagram->setArrow(line, Diagram::End::Target, Diagram::Arrow::Filled);
    return line;
}

/// What is clicked becomes the selection, which a frame in the feedback layer shows.
class SelectingView : public DiagramView
{
public:
    using DiagramView::DiagramView;

    void select(Figure *figure)
    {
        delete m_frame; // leaves its layer by itself
        if (!figure)
            return;
        m_frame = new Rectangle(getDiagram());
        m_frame->setFill(false);
        m_frame->setEnabledFGColor(QColor(0x1f, 0x6f, 0xc4));
        m_frame->setLineStyle(Qt::DashLine);
        const QRect place = figure->getBoundingRect().adjusted(-6, -6, 6, 6);
        getDiagram()->getFeedbackLayer()->add(m_frame, place);
    }

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        DiagramView::mousePressEvent(event);
        if (!isPanning())
            select(getDiagram()->findFigureAt(toContent(event->position().toPoint())));
    }

private:
    QPointer<Rectangle> m_frame;
};

} // namespace

QImage diagrams()
{
    Diagram diagram;
    auto *order =
        addStep<RoundedRectangle>(&diagram, QStringLiteral("Order"), blue, QRect(30, 30, 110, 50));
    auto *check =
        addStep<Ellipse>(&diagram, QStringLiteral("In stock?"), sand, QRect(210, 20, 120, 70));
    auto *send =
        addStep<RoundedRectangle>(&diagram, QStringLiteral("Send"), green, QRect(410, 30, 110, 50));
    auto *buy =
        addStep<RoundedRectangle>(&diagram, QStringLiteral("Buy"), blue, QRect(215, 160, 110, 50));
    connectSteps(&diagram, order, check);
    diagram.setLabel(connectSteps(&diagram, check, send), QStringLiteral("yes"));
    diagram.setLabel(connectSteps(&diagram, check, buy), QStringLiteral("no"));

    diagram.setBounds(buy, QRect(215, 170, 110, 50)); // its connection follows at once

    SelectingView view(&diagram);
    view.resize(600, 310);
    view.show();
    view.select(check);
    return view.grab().toImage();
}

} // namespace GuideSamples
