#include "commands/ChangeElements.h"

namespace Editor {
namespace {

template<class Item>
bool has(const QList<Item> &items, int id)
{
    return std::any_of(items.cbegin(), items.cend(),
                       [id](const Item &item) { return item.id == id; });
}

template<class Item>
void addMissing(QList<Item> &items, const QList<Item> &others)
{
    for (const Item &other : others) {
        if (!has(items, other.id))
            items << other;
    }
}

// The list is searched from where its counterpart was found last: both are in the same order, and a
// drag of everything has thousands of items at every step.
template<class Item>
void overwrite(QList<Item> &items, const QList<Item> &others)
{
    qsizetype hint = 0;
    for (const Item &other : others) {
        for (qsizetype tried = 0; tried < items.size(); ++tried, ++hint) {
            Item &item = items[hint % items.size()];
            if (item.id != other.id)
                continue;
            item = other;
            break;
        }
    }
}

bool sameIds(const auto &first, const auto &second)
{
    return std::equal(first.cbegin(), first.cend(), second.cbegin(), second.cend(),
                      [](const auto &a, const auto &b) { return a.id == b.id; });
}

void addMissing(Revision &revision, const Revision &other)
{
    if (!sameIds(revision.nodes, other.nodes))
        addMissing(revision.nodes, other.nodes);
    if (!sameIds(revision.edges, other.edges))
        addMissing(revision.edges, other.edges);
    if (revision.order.isEmpty())
        revision.order = other.order;
}

void overwrite(Revision &revision, const Revision &other)
{
    addMissing(revision, other);
    overwrite(revision.nodes, other.nodes);
    overwrite(revision.edges, other.edges);
    if (!other.order.isEmpty())
        revision.order = other.order;
}

} // namespace

ChangeElements::ChangeElements(const QString &text, Document &document, const Revision &after,
                               int series)
    : QUndoCommand(text)
    , m_document(document)
    , m_before(Revision::now(document, after))
    , m_after(after)
    , m_series(series)
{
}

int ChangeElements::newSeries()
{
    static int series = 0;
    return ++series;
}

void ChangeElements::undo()
{
    m_before.applyTo(m_document);
}

void ChangeElements::redo()
{
    m_after.applyTo(m_document);
}

bool ChangeElements::mergeWith(const QUndoCommand *other)
{
    const auto *next = static_cast<const ChangeElements *>(other); // a series has no others
    addMissing(m_before, next->m_before);
    overwrite(m_after, next->m_after);
    setText(next->text());
    setObsolete(isEmpty());
    return true;
}

} // namespace Editor
