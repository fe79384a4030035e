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
    void takeTurns(); ///< A pass follows in which everybody has the second turn.

    /// Those that \a manager has dropped and that are still invalid, although nothing is pending.
    QList<Figure *> leftInvalid(const UpdateManager *manager) const;

private:
    struct Drop
    {
        QPointer<Figure> figure;
        int passes = 0;      ///< It was queued during so many since it was granted a turn,
        bool isLost = false; ///< and has been invalid since the end of the latest.
        bool hadTurn = false;
        bool isDue = false; // its second turn is still to come
    };

    Drop &entryOf(Figure *figure);

    QList<Drop> m_drops;
    bool m_isTurn = false; // the present pass
};

} // namespace Velmora::Figura::Storm
