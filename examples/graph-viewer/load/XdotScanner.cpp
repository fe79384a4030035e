#include "XdotScanner.h"

namespace GraphViewer {

XdotScanner::XdotScanner(const QByteArray &text, const QTransform &toScene)
    : m_text(text)
    , m_toScene(toScene)
{
}

bool XdotScanner::atEnd()
{
    skipBlanks();
    return m_failed || m_at >= m_text.size();
}

char XdotScanner::letter()
{
    const QByteArray word = token();
    if (word.size() != 1)
        fail();
    return m_failed ? '\0' : word.front();
}

double XdotScanner::number()
{
    bool ok = false;
    const double value = token().toDouble(&ok);
    if (!ok || !qIsFinite(value))
        fail();
    return m_failed ? 0.0 : value;
}

int XdotScanner::integer()
{
    bool ok = false;
    const int value = token().toInt(&ok);
    if (!ok)
        fail();
    return m_failed ? 0 : value;
}

QByteArray XdotScanner::counted()
{
    const int size = integer();
    skipBlanks();
    // The hyphen marks where the text begins: it may itself begin with a blank.
    const qsizetype available = m_text.size() - m_at - 1;
    if (m_failed || size < 0 || size > available || m_text.at(m_at) != '-') {
        fail();
        return {};
    }
    const QByteArray text = m_text.mid(m_at + 1, size);
    m_at += 1 + size;
    return text;
}

QPointF XdotScanner::point()
{
    const double x = number();
    const double y = number();
    return m_toScene.map(QPointF(x, y));
}

QPolygonF XdotScanner::points()
{
    QPolygonF polygon;
    for (int left = integer(); left > 0 && !m_failed; --left)
        polygon << point();
    return polygon;
}

QByteArray XdotScanner::token()
{
    skipBlanks();
    const int begin = m_at;
    while (m_at < m_text.size() && !isspace(static_cast<unsigned char>(m_text.at(m_at))))
        ++m_at;
    return m_text.mid(begin, m_at - begin);
}

void XdotScanner::skipBlanks()
{
    while (m_at < m_text.size() && isspace(static_cast<unsigned char>(m_text.at(m_at))))
        ++m_at;
}

} // namespace GraphViewer
