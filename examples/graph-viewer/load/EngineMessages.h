#pragma once

#include <QStringList>

namespace GraphViewer {

/// Catches what the layout engine would print, for as long as it lives. Only one at a time.
class EngineMessages
{
public:
    EngineMessages();
    ~EngineMessages();
    Q_DISABLE_COPY_MOVE(EngineMessages)

    /// What there was, each on one line and once only.
    QStringList lines() const;
    QString firstError() const; ///< Empty when there were only warnings.
};

} // namespace GraphViewer
