#pragma once

#include <figura/layout/Layout.h>

#include <QHash>
#include <QList>

#include <memory>

namespace Velmora::Figura {

/// The children of a layout: their order, and the record of each.
///
/// A diagram is taken down one figure after another, in any order. So a child that leaves is not
/// searched for but found by the key in its record, and leaves a gap that closes at the next look
/// at the list, together with all others.
class LayoutChildren
{
public:
    using Record = Layout::LayoutHelper;

    LayoutChildren();
    ~LayoutChildren();
    Q_DISABLE_COPY_MOVE(LayoutChildren)

    static LayoutChildren &of(const Layout *layout);

    const QList<Figure *> &figures(); ///< In order, the topmost last.
    int count() const;
    Record *
    record(const Figure *child) const; ///< Null for a stranger, and for one that is leaving.

    /// Differs from that of every other list, and from its own before any change.
    quint64 revision() const;

    void insert(int index, Figure *child, std::unique_ptr<Record> record);
    std::unique_ptr<Record> takeRecord(const Figure *child); ///< The child stays in its place.
    /// Takes \a child out of the order. Without its \a record it has to be searched for.
    void remove(const Figure *child, const Record *record);

    /// How many entries were ever searched or shifted on behalf of children that left.
    quint64 effort() const;

private:
    qint64 keyAt(qsizetype place);
    void spreadKeys();
    qsizetype placeOf(const Figure *child, const Record *record);
    void closeGaps();
    void noteChange();

    QList<Figure *> m_figures; // null: a gap
    QList<qint64> m_keys;      // ascending, one for each place
    QHash<const Figure *, Record *> m_records;
    qsizetype m_gaps = 0;
    qsizetype m_firstGap = 0; // no gap stands before this place
    quint64 m_revision = 0;
    quint64 m_effort = 0;
};

} // namespace Velmora::Figura
