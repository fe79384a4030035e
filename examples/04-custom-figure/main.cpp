// A figure that paints itself: a gauge with a needle.
#include <figura/Figura.h>

#include <QApplication>
#include <QPainter>
#include <QStyleOptionViewItem>

#include <algorithm>

using namespace Velmora::Figura;

namespace {

class Gauge : public Figure
{
public:
    explicit Gauge(QObject *parent = nullptr)
        : Figure(parent)
    {
    }

    double getValue() const { return m_value; }

    /// From 0 to 1; values outside are brought in.
    void setValue(double value)
    {
        value = std::clamp(value, 0.0, 1.0);
        if (value == m_value)
            return;
        m_value = value;
        repaint(); // the size stays: no revalidate()
    }

    // A click beside the half disc is no click on the gauge.
    bool contains(const QPoint &point) const override
    {
        if (!Figure::contains(point))
            return false;
        const QRect dial = dialIn(const_cast<Gauge *>(this)->getBounds());
        const QPointF away = QPointF(point - dial.center());
        return QPointF::dotProduct(away, away) * 4 <= dial.width() * dial.width();
    }

protected:
    QSize calculateContentSize() override { return {120, 60}; }

    // option.rect is in absolute coordinates; the painter is zoomed and scrolled already.
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        const QRect dial = dialIn(option.rect.adjusted(1, 1, -1, -1));
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(QColor(0xe4, 0xe4, 0xe4));
        painter->drawPie(dial, 0, 180 * 16);
        painter->setBrush(isEnabled() ? QColor(0x3d, 0x8f, 0xd6) : QColor(0xa0, 0xa0, 0xa0));
        painter->drawPie(dial, 180 * 16, -qRound(m_value * 180 * 16));
        drawNeedle(painter, dial);
        painter->restore();
    }

private:
    // The full circle whose upper half is shown.
    static QRect dialIn(const QRect &rect)
    {
        const int radius = std::min(rect.width() / 2, rect.height());
        return {rect.center().x() - radius, rect.bottom() - radius, 2 * radius, 2 * radius};
    }

    void drawNeedle(QPainter *painter, const QRect &dial) const
    {
        painter->translate(dial.center());
        painter->rotate(m_value * 180);
        painter->setPen(QPen(Qt::black, 2));
        painter->drawLine(QPointF(0, 0), QPointF(-0.45 * dial.width(), 0));
    }

    double m_value = 0;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);

    FreeformLayeredPane pane;
    auto *layer = new FreeformLayer(&pane);
    pane.addLayer(layer, QStringLiteral("gauges"));

    QList<Gauge *> gauges;
    for (const double value : {0.15, 0.5, 0.8}) {
        auto *gauge = new Gauge(layer);
        gauge->setValue(value);
        layer->add(gauge, QRect(20 + 150 * int(gauges.size()), 70, -1, -1)); // its own size
        gauges.append(gauge);
    }
    gauges.last()->setEnabled(false);

    FreeformViewer viewer;
    viewer.setContent(&pane);
    viewer.resize(480, 220);
    viewer.show();
    if (argc == 2) // a picture of the window instead of the window
        return viewer.grab().save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
    return app.exec();
}
