#include <figura/diagram/Diagram.h>

#include "diagramlinks_p.h"
#include "diagrampane_p.h"
#include "paper_p.h"
#include "reach_p.h"

#include <figura/connection/ConnectionLayer.h>

#include <QGuiApplication>
#include <QPainter>
#include <QStyleOptionViewItem>

#include <algorithm>

// What lies where, and what it looks like.

namespace Velmora::Figura {
namespace {

template<class FigureType>
FigureType *topmostAt(const QList<FigureType *> &figures, const QPoint &point)
{
    const auto hit = [&point](const FigureType *figure) {
        return figure->isVisible() && figure->contains(point);
    };
    const auto found = std::find_if(figures.crbegin(), figures.crend(), hit);
    return found == figures.crend() ? nullptr : *found;
}

template<class FigureType>
QRect united(const QList<FigureType *> &figures)
{
    QRect area;
    for (FigureType *figure : figures) {
        if (figure->isVisible())
            area |= paintedRect(figure);
    }
    return area;
}

} // namespace

Figure *Diagram::findFigureAt(const QPoint &point) const
{
    return topmostAt(getFigures(), point);
}

PolylineConnection *Diagram::findConnectionAt(const QPoint &point) const
{
    return topmostAt(getConnections(), point);
}

QList<Figure *> Diagram::findFigures(const QRect &rect, bool containedOnly) const
{
    QList<Figure *> figures = getFigures();
    figures.removeIf([&](const Figure *figure) {
        const bool met = containedOnly ? figure->isContained(rect) : figure->isIntersecting(rect);
        return !met || !figure->isVisible();
    });
    return figures;
}

QRect Diagram::paintedExtent()
{
    return m_figureLayer->getFreeformExtent() | m_connectionLayer->getFreeformExtent();
}

QRect Diagram::getExtent()
{
    const QPointer<Diagram> alive(this);
    validate();
    return alive ? paintedExtent() : QRect();
}

QRect Diagram::getExtent(const QList<Figure *> &figures)
{
    const QPointer<Diagram> alive(this);
    validate();
    if (!alive)
        return {};
    QList<Figure *> chosen = figures;
    chosen.removeIf([this](const Figure *figure) { return !isAdded(figure); });
    return united(chosen) | united(connectionsBetween(chosen));
}

// Each layer for itself: a pane that is valid does not look whether its layers are. All go with the
// diagram, which a figure may destroy while it is validated.
void Diagram::validate()
{
    for (const QPointer<Figure> &part :
         {QPointer<Figure>(m_pane), QPointer<Figure>(m_figureLayer),
          QPointer<Figure>(m_connectionLayer), QPointer<Figure>(m_feedbackLayer)}) {
        if (part)
            part->validate();
    }
}

QList<PolylineConnection *> Diagram::connectionsBetween(const QList<Figure *> &figures) const
{
    const QSet<Figure *> chosen(figures.cbegin(), figures.cend());
    QList<PolylineConnection *> connections = getConnections();
    connections.removeIf([&](const PolylineConnection *connection) {
        return !chosen.contains(addedFigure(getSource(connection))) ||
               !chosen.contains(addedFigure(getTarget(connection)));
    });
    return connections;
}

bool Diagram::isAntialiased() const
{
    return m_antialiased;
}

void Diagram::setAntialiased(bool on)
{
    m_antialiased = on;
    m_connectionLayer->setAntialias(on);
    m_pane->repaint();
}

void Diagram::render(QPainter *painter, const QRect &area)
{
    if (!painter)
        return;
    const QPointer<Diagram> alive(this);
    validate();
    if (!alive)
        return;
    if (!m_view) // which else hears of lines that become wider
        noteAllReaches();
    renderThese(painter, area, getFigures(), getConnections());
}

void Diagram::render(QPainter *painter, const QRect &area, const QList<Figure *> &figures)
{
    if (!painter)
        return;
    const QPointer<Diagram> alive(this);
    validate();
    if (!alive)
        return;
    const QSet<Figure *> wanted(figures.cbegin(), figures.cend());
    QList<Figure *> chosen = getFigures();
    chosen.removeIf([&wanted](Figure *figure) { return !wanted.contains(figure); });
    renderThese(painter, area, chosen, connectionsBetween(chosen));
}

void Diagram::renderThese(QPainter *painter, const QRect &area, const QList<Figure *> &figures,
                          const QList<PolylineConnection *> &connections)
{
    QStyleOptionViewItem option;
    option.state |= QStyle::State_Enabled | QStyle::State_Active;
    option.palette = QGuiApplication::palette();
    option.rect = area.adjusted(-m_reach, -m_reach, m_reach, m_reach);
    const Paper paper({m_pane, m_figureLayer, m_connectionLayer}, option.rect);

    // Figures paint themselves by the application's code, which may destroy others, and the
    // diagram.
    QList<QPointer<Figure>> all(figures.cbegin(), figures.cend());
    all.append(QList<QPointer<Figure>>(connections.cbegin(), connections.cend()));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, m_antialiased);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    for (const QPointer<Figure> &figure : std::as_const(all)) {
        if (figure && figure->isVisible())
            figure->render(painter, option);
    }
    painter->restore();
}

} // namespace Velmora::Figura
