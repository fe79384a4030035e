#pragma once

#include <QList>
#include <QObject>
#include <QSet>

namespace Editor {

class Document;

/// The nodes and edges that the next command is about, in the order in which they were chosen.
class Selection : public QObject
{
    Q_OBJECT

public:
    explicit Selection(const Document &document, QObject *parent = nullptr);

    const QList<int> &ids() const { return m_ids; }
    QList<int> nodes() const;
    QList<int> edges() const;
    bool isEmpty() const { return m_ids.isEmpty(); }
    bool contains(int id) const { return m_set.contains(id); }

    int singleNode() const; ///< 0 unless exactly one node and nothing else is chosen.
    int singleEdge() const;

    void set(const QList<int> &ids);
    void toggle(int id);
    void add(const QList<int> &ids);
    void clear() { set({}); }
    void selectAll();
    void prune(); ///< Drops what is no longer in the document.

Q_SIGNALS:
    void changed();

private:
    const Document &m_document;
    QList<int> m_ids;
    QSet<int> m_set;
};

} // namespace Editor
