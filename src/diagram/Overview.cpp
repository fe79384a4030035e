#include <figura/diagram/Overview.h>

#include "papercolor_p.h"

#include <figura/diagram/Diagram.h>
#include <figura/diagram/DiagramView.h>
#include <figura/view/FreeformWidget.h>

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace Velmora::Figura {
namespace {

constexpr int patience = 100; // milliseconds from a change to its picture
constexpr int border = 10;    // around the content, in its units
constexpr int mostRects = 16; // of damage that are painted one by one

QRectF visiblePart(DiagramView *view)
{
    return view->toContent(QRectF(view->viewport()->rect()));
}

} // namespace

Overview::Overview(QWidget *parent)
    : QWidget(parent)
{
    prepare();
}

Overview::Overview(DiagramView *view, QWidget *parent)
    : Overview(parent)
{
    setView(view);
}

Overview::~Overview() = default;

void Overview::prepare()
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(patience);
    connect(&m_timer, &QTimer::timeout, this, [this]() {
        if (isVisible())
            refresh();
    });
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(40, 30);
}

QSize Overview::sizeHint() const
{
    return {200, 150};
}

DiagramView *Overview::getView() const
{
    return m_view;
}

void Overview::setView(DiagramView *view)
{
    if (view == m_view)
        return;
    if (m_view)
        disconnect(m_view, nullptr, this, nullptr);
    m_view = view;
    if (view) {
        connect(view, &DiagramView::contentDamaged, this, &Overview::noteDamage);
        connect(view, &DiagramView::viewChanged, this, qOverload<>(&QWidget::update));
        connect(view, &DiagramView::diagramChanged, this, &Overview::restart);
        connect(view, &QObject::destroyed, this, &Overview::restart);
    }
    restart();
}

// The picture is made when it is needed.
void Overview::restart()
{
    m_picture = QImage();
    m_area = QRect();
    m_damage = QRegion();
    update();
}

// The first of several changes starts the clock, so that a stream of them is seen as it goes.
void Overview::noteDamage(const QRect &rect)
{
    m_damage |= rect;
    if (m_damage.rectCount() > mostRects)
        m_damage = m_damage.boundingRect();
    if (!m_timer.isActive())
        m_timer.start();
}

void Overview::refresh()
{
    Diagram *diagram = m_view ? m_view->getDiagram() : nullptr;
    if (!diagram)
        return;
    if (fitPicture())
        m_damage = m_area;
    if (!m_picture.isNull())
        paintDamage();
    update();
}

// True when the picture shows another area, or has another size, than before: it is empty then.
bool Overview::fitPicture()
{
    const QRect extent = m_view->getDiagram()->getExtent();
    const QRect area =
        extent.isValid() ? extent.adjusted(-border, -border, border, border) : QRect(0, 0, 1, 1);
    const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (area == m_area && pixels == m_picture.size())
        return false;
    m_area = area;
    m_picture = QImage(pixels, QImage::Format_RGB32);
    m_picture.fill(paperColor(m_view));
    return true;
}

QTransform Overview::toPicture() const
{
    const double scale = std::min(double(m_picture.width()) / m_area.width(),
                                  double(m_picture.height()) / m_area.height());
    const QPointF centre = QRectF(m_area).center();
    QTransform transform;
    transform.translate(m_picture.width() / 2.0, m_picture.height() / 2.0);
    transform.scale(scale, scale);
    transform.translate(-centre.x(), -centre.y());
    return transform;
}

void Overview::paintDamage()
{
    QPainter painter(&m_picture);
    const QTransform transform = toPicture();
    const QRegion damage = std::exchange(m_damage, QRegion());
    for (const QRect &rect : damage) {
        // Smooth edges, and lines that are thinner than a pixel, take part of the pixels around.
        const QRect pixels = transform.mapRect(QRectF(rect)).toAlignedRect().adjusted(-1, -1, 1, 1);
        const QRectF reached(pixels.adjusted(-1, -1, 1, 1));
        painter.setTransform(QTransform());
        painter.setClipRect(pixels & m_picture.rect());
        painter.fillRect(pixels, paperColor(m_view));
        painter.setTransform(transform);
        m_view->getDiagram()->render(&painter,
                                     transform.inverted().mapRect(reached).toAlignedRect());
    }
}

QPointF Overview::toContent(const QPointF &position) const
{
    if (m_picture.isNull())
        return {};
    return toPicture().inverted().map(position * devicePixelRatioF());
}

QRectF Overview::fromContent(const QRectF &rect) const
{
    if (m_picture.isNull())
        return {};
    const QRectF pixels = toPicture().mapRect(rect);
    return QRectF(pixels.topLeft() / devicePixelRatioF(), pixels.size() / devicePixelRatioF());
}

void Overview::paintEvent(QPaintEvent * /*event*/)
{
    if (!m_view || !m_view->getDiagram())
        return;
    if (m_picture.isNull())
        refresh();
    if (m_picture.isNull()) // there is no room for one
        return;

    QPainter painter(this);
    painter.drawImage(rect(), m_picture);
    const QColor color = palette().color(QPalette::Highlight);
    QColor veil(color);
    veil.setAlpha(40);
    painter.setPen(color);
    painter.setBrush(veil);
    const QRect frame = fromContent(visiblePart(m_view)).toAlignedRect().adjusted(0, 0, -1, -1);
    painter.drawRect(frame & rect().adjusted(0, 0, -1, -1));
}

// What changed meanwhile.
void Overview::showEvent(QShowEvent * /*event*/)
{
    refresh();
}

// At once: a picture that is stretched meanwhile would look broken.
void Overview::resizeEvent(QResizeEvent * /*event*/)
{
    refresh();
}

// Held inside the frame it moves along; beside it, the view comes to the mouse.
void Overview::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_view || !m_view->getDiagram())
        return;
    const QRectF frame = visiblePart(m_view);
    const QPointF point = toContent(event->position());
    m_grip = frame.contains(point) ? point - frame.center() : QPointF();
    moveView(event->position());
}

void Overview::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        moveView(event->position());
}

void Overview::moveView(const QPointF &position)
{
    if (m_view && m_view->getDiagram())
        m_view->centerOn(toContent(position) - m_grip);
}

} // namespace Velmora::Figura
