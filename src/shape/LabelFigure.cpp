#include <figura/shape/LabelFigure.h>

#include <figura/layout/HBoxLayout.h>
#include <figura/layout/VBoxLayout.h>
#include <figura/shape/PixmapFigure.h>
#include <figura/shape/TextFigure.h>

namespace Velmora::Figura {

LabelFigure::LabelFigure(const QString &text, const QPixmap &pixmap, Qt::Orientations orientation,
                         QObject *parent, const QColor &backgroundColor)
    : Figure(parent, backgroundColor)
    , m_pixmap(new PixmapFigure(pixmap, this, Qt::transparent))
    , m_text(new TextFigure(text, this, Qt::transparent))
{
    setOrientation(orientation);
    add(m_pixmap, 0, 0, -1);
    add(m_text, 0, 0, -1);
}

LabelFigure::~LabelFigure() = default;

QString LabelFigure::getText() const
{
    return m_text ? m_text->getText() : QString();
}

void LabelFigure::setText(const QString &text)
{
    if (m_text)
        m_text->setText(text);
}

QPixmap LabelFigure::getPixmap() const
{
    return m_pixmap ? m_pixmap->getPixmap() : QPixmap();
}

void LabelFigure::setPixmap(const QPixmap &pixmap)
{
    if (m_pixmap)
        m_pixmap->setPixmap(pixmap);
}

Qt::Orientations LabelFigure::getOrientation() const
{
    return m_orientation;
}

void LabelFigure::setOrientation(Qt::Orientations orientation)
{
    m_orientation = orientation;

    Layout *box = nullptr;
    if (orientation.testFlag(Qt::Vertical))
        box = new VBoxLayout(this);
    else
        box = new HBoxLayout(this);
    box->setExpandingDirections(expandingDirections());
    delete setLayoutManager(box); // the parts go with it, on purpose
}

void LabelFigure::setExpandingDirections(Qt::Orientations directions)
{
    Figure::setExpandingDirections(directions);
    if (Layout *box = getLayoutManager())
        box->setExpandingDirections(directions);
}

} // namespace Velmora::Figura
