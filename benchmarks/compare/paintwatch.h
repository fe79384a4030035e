#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QWidget>

/// Counts the paint events of one widget.
class PaintWatch final : public QObject
{
public:
    explicit PaintWatch(QWidget *canvas) { canvas->installEventFilter(this); }

    int count() const { return m_count; }

    /// Delivers what is posted until the widget has painted once more than before.
    void awaitPaint()
    {
        const int before = m_count;
        for (int round = 0; round < maximumRounds && m_count == before; ++round)
            QCoreApplication::sendPostedEvents();
        if (m_count == before)
            QCoreApplication::processEvents(); // a window that is new to the window system
        if (m_count == before)
            qFatal("a step without a paint event");
    }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++m_count;
        return false;
    }

private:
    static constexpr int maximumRounds = 8;

    int m_count = 0;
};
