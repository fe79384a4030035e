#pragma once

#include <QColor>

namespace Editor {

/// What a document leaves open: the colours of a light or a dark window.
struct Theme
{
    QColor paper;
    QColor line;
    QColor fill;
    QColor text;
    QColor laneFill;
    QColor laneTitle;
    QColor accent; ///< Handles, guides and whatever else is no part of the document.

    static const Theme &light();
    static const Theme &dark();

    /// For texts without a colour of their own on a fill that was chosen, or else on the usual one.
    QColor textOn(const QColor &chosen) const;

    /// \a color, or \a usual when it is left open.
    static QColor resolved(const QColor &color, const QColor &usual)
    {
        return color.isValid() ? color : usual;
    }
};

} // namespace Editor
