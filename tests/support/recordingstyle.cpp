#include <recordingstyle.h>

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QRubberBand>
#include <QStyleOption>

namespace Velmora::Figura::Test {

class RecordingStyle::Style : public QProxyStyle
{
public:
    explicit Style(RecordingStyle *log)
        : QProxyStyle(QStringLiteral("fusion"))
        , m_log(log)
    {
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;

private:
    static Call common(const QStyleOption *option, const QWidget *widget);

    RecordingStyle *m_log;
};

void RecordingStyle::Style::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                          QPainter *painter, const QWidget *widget) const
{
    if (element != PE_FrameFocusRect) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }

    Call call = common(option, widget);
    if (const auto *focus = qstyleoption_cast<const QStyleOptionFocusRect *>(option))
        call.backgroundColor = focus->backgroundColor;
    m_log->focusRects.append(call);
    painter->drawRect(option->rect);
}

void RecordingStyle::Style::drawControl(ControlElement element, const QStyleOption *option,
                                        QPainter *painter, const QWidget *widget) const
{
    if (element != CE_RubberBand) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }

    Call call = common(option, widget);
    if (const auto *band = qstyleoption_cast<const QStyleOptionRubberBand *>(option)) {
        call.isRectangle = band->shape == QRubberBand::Rectangle;
        call.isOpaque = band->opaque;
    }
    m_log->rubberBands.append(call);
    painter->drawRect(option->rect);
}

RecordingStyle::Call RecordingStyle::Style::common(const QStyleOption *option,
                                                   const QWidget *widget)
{
    Call call;
    call.rect = option->rect;
    call.state = option->state;
    call.fontHeight = option->fontMetrics.height();
    call.hasWidget = widget != nullptr;
    return call;
}

// The application owns its style: the one that is set replaces and deletes the one before.
RecordingStyle::RecordingStyle()
    : m_formerName(QApplication::style()->name())
{
    QApplication::setStyle(new Style(this));
}

RecordingStyle::~RecordingStyle()
{
    QApplication::setStyle(m_formerName);
}

} // namespace Velmora::Figura::Test
