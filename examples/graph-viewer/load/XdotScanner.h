#pragma once

#include <QByteArray>
#include <QPolygonF>
#include <QTransform>

namespace GraphViewer {

/// Reads the tokens of the layout engine's drawing language: numbers, and texts that are preceded
/// by their length in bytes.
///
/// The first token that is not what was asked for makes the scanner fail; from then on it is at its
/// end and yields zeros and empty texts.
class XdotScanner
{
public:
    /// \a toScene maps the engine's coordinates, where y grows upwards, to ours.
    XdotScanner(const QByteArray &text, const QTransform &toScene);

    bool atEnd();
    bool hasFailed() const { return m_failed; }

    char letter();
    double number();
    int integer();
    QByteArray counted(); ///< "5 -solid"
    QPointF point();
    QPolygonF points(); ///< "2 0 0 10 10"
    const QTransform &toScene() const { return m_toScene; }

    void fail() { m_failed = true; }

private:
    QByteArray token();
    void skipBlanks();

    QByteArray m_text;
    QTransform m_toScene;
    qsizetype m_at = 0;
    bool m_failed = false;
};

} // namespace GraphViewer
