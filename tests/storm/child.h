#pragma once

#include <script.h>

#include <QStringList>

namespace Velmora::Figura::Storm {

/// How a run in a process of its own has ended.
struct Outcome
{
    QByteArray fault;  ///< Of which kind, and what; empty when all went well.
    QByteArray output; ///< All that the process wrote.

    QByteArray kind() const { return fault.left(fault.indexOf(':')); }
};

/// Runs this program again with \a arguments. It is the child that crashes, hangs or finds a fault.
Outcome runChild(const QStringList &arguments);

/// Plays a list of operations in a process of its own.
Outcome playInChild(const Script &script);

/// What the child writes for its parent.
void tellFault(const QByteArray &fault);

} // namespace Velmora::Figura::Storm
