#pragma once

#include <QList>
#include <QPointer>

namespace Velmora::Figura {
class Figure;
class UpdateManager;
} // namespace Velmora::Figura

namespace Velmora::Figura::Storm {

/// The figures that called for validation while a pass was under way, which has dropped them, and
/// what has become of them. It outlives the managers, as the widget does that looks after them.
class DropLedger
{
public:
    void record(const QList<QPointer<Figure>> &late); ///< At the end of a pass.
    void noteServed();                                ///< Before anything becomes invalid.

    /// A pass follows that has other causes than a former one, so that everybody has a second turn.
    void grantTurns();
    void takeTurns(); ///< A pass follows in which those that were dropped have theirs.

    /// Those that \a manager has dropped and that are still invalid, although nothing is pending
    /// and they were not dropped in their second turn.
    QList<Figure *> leftInvalid(const UpdateManager *manager) const;

private:
    struct Drop
    {
        QPointer<Figure> figure;
        bool isLost = false;  // invalid since the end of the latest pass that has dropped it
        bool isDue = false;   // its second turn is still to come
        bool hadTurn = false; // since the latest pass with other causes
        bool isLetGo = false; // dropped once more after that
    };

    Drop &entryOf(Figure *figure);

    QList<Drop> m_drops;
};

} // namespace Velmora::Figura::Storm
