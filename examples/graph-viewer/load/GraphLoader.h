#pragma once

#include "GraphModel.h"

namespace GraphViewer {

/// Reads a graph file and lays it out, in this process.
///
/// The layout engine is C code that some graphs crash and others keep busy for hours, so a window
/// does not call this itself: see LayoutProcess.
class GraphLoader
{
public:
    /// What we let the engine try.
    struct Limits
    {
        qint64 bytes;
        int nodes;
        int edges;
    };

    /// An empty \a engine means the one that the graph asks for, and "dot" if it does not.
    explicit GraphLoader(const QString &engine = QString());

    void setLimits(const Limits &limits) { m_limits = limits; }
    static Limits defaultLimits();
    static QStringList engines(); ///< "dot", "neato", "fdp", "circo", "twopi".

    /// The error of the reply begins with \a path, as in "x.gv: syntax error in line 1".
    /// Of a file with several graphs the first is taken.
    LoadReply load(const QString &path) const;

private:
    LoadReply layOut(const QByteArray &text, const QString &folder) const;

    QString m_engine;
    Limits m_limits = defaultLimits();
};

} // namespace GraphViewer
