#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

namespace Velmora::Figura::Storm {

/// One step of a storm: which operation, an index into the catalogue, and its numbers.
struct Operation
{
    int code = 0;
    QList<int> numbers;

    bool operator==(const Operation &other) const = default;
};

using Script = QList<Operation>;

/// One line an operation: its name and its numbers.
QByteArray toText(const Script &script);
/// The reverse. Empty lines and what follows a # are skipped; nothing for an unknown name.
std::optional<Script> fromText(const QByteArray &text);

/// As many operations, always the same ones for the same seed and episode.
Script generate(quint32 seed, quint32 episode, int count);

/// Reads a code, and then as many numbers as its operation takes, one byte each.
Script decode(const QByteArray &bytes);
/// The reverse, for numbers below 256.
QByteArray encode(const Script &script);

} // namespace Velmora::Figura::Storm
