#pragma once

#include <figura/layout/FreeformLayout.h>

#include <QHash>
#include <QSize>

namespace Velmora::Figura {

/// Figures lie exactly where they were put, from the moment on when they are added.
///
/// Elsewhere a figure that is moved before the first layout pass goes back to where it was added,
/// small ones are enlarged to their minimum size, one that chose its own size keeps that for ever,
/// and a shape has no outline, because it is placed before it is attached.
class PlacedLayout : public FreeformLayout
{
public:
    explicit PlacedLayout(QObject *parent);

    using FreeformLayout::add;
    bool add(Figure *child, const QVariant &constraint, int index) override;
    bool remove(Figure *child) override;
    bool setConstraint(Figure *child, const QVariant &constraint) override;
    void childMoved(Figure *child) override;

protected:
    bool applyConstraint(Figure *child, const QVariant &constraint) override;

private:
    struct Choice
    {
        QSize size;
        QMetaObject::Connection watch;
    };

    void noteChoice(Figure *child);

    Figure *m_applyingTo = nullptr;
    QHash<Figure *, Choice> m_chosen; // what figures chose, where the constraint leaves it to them
};

} // namespace Velmora::Figura
