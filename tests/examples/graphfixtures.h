#pragma once

#include "load/GraphLoader.h"
#include "load/GraphModel.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

/// What several tests of the graph viewer need.
namespace GraphFixtures {

/// A folder of its own for the files of one test.
class Folder
{
public:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QString write(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        return file.fileName();
    }

private:
    QTemporaryDir m_folder;
};

inline GraphViewer::LoadReply load(const QByteArray &text, const QString &engine = QString())
{
    const Folder folder;
    return GraphViewer::GraphLoader(engine).load(folder.write(QStringLiteral("graph.gv"), text));
}

/// The graph, or a failed test and an empty graph.
inline GraphViewer::GraphModel graph(const QByteArray &text, const QString &engine = QString())
{
    const GraphViewer::LoadReply reply = load(text, engine);
    if (!reply.ok())
        QTest::qFail(qPrintable(reply.error), __FILE__, __LINE__);
    return reply.graph;
}

} // namespace GraphFixtures
