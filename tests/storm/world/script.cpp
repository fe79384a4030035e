#include "script.h"

#include "catalogue.h"

#include <QRandomGenerator>

namespace Velmora::Figura::Storm {
namespace {

constexpr int numberLimit = 1 << 16;

std::optional<Operation> operationFrom(const QByteArray &line)
{
    QList<QByteArray> words = line.simplified().split(' ');
    Operation operation;
    operation.code = codeOf(words.takeFirst());
    if (operation.code < 0)
        return std::nullopt;
    for (const QByteArray &word : std::as_const(words))
        operation.numbers.append(word.toInt());
    return operation;
}

int totalWeight()
{
    int total = 0;
    for (const Entry &entry : catalogue())
        total += entry.weight;
    return total;
}

int codeAt(int place)
{
    int code = 0;
    while (place >= catalogue().at(code).weight)
        place -= catalogue().at(code++).weight;
    return code;
}

} // namespace

QByteArray toText(const Script &script)
{
    QByteArray text;
    for (const Operation &operation : script) {
        text += catalogue().at(operation.code).name;
        for (const int number : operation.numbers)
            text += ' ' + QByteArray::number(number);
        text += '\n';
    }
    return text;
}

std::optional<Script> fromText(const QByteArray &text)
{
    Script script;
    const QList<QByteArray> lines = text.split('\n');
    for (const QByteArray &line : lines) {
        const QByteArray content = line.split('#').first().trimmed();
        if (content.isEmpty())
            continue;
        const std::optional<Operation> operation = operationFrom(content);
        if (!operation)
            return std::nullopt;
        script.append(*operation);
    }
    return script;
}

Script generate(quint32 seed, quint32 episode, int count)
{
    static const int total = totalWeight();
    const quint32 seeds[] = {seed, episode};
    QRandomGenerator random(seeds);
    Script script;
    while (script.size() < count) {
        Operation operation{codeAt(random.bounded(total)), {}};
        for (int i = 0; i < catalogue().at(operation.code).arity; ++i)
            operation.numbers.append(random.bounded(numberLimit));
        script.append(operation);
    }
    return script;
}

Script decode(const QByteArray &bytes)
{
    Script script;
    for (qsizetype i = 0; i < bytes.size();) {
        Operation operation{static_cast<uchar>(bytes.at(i++)) % int(catalogue().size()), {}};
        const Entry &entry = catalogue().at(operation.code);
        for (int k = 0; k < entry.arity && i < bytes.size(); ++k)
            operation.numbers.append(static_cast<uchar>(bytes.at(i++)));
        if (entry.weight > 0)
            script.append(operation);
    }
    return script;
}

QByteArray encode(const Script &script)
{
    QByteArray bytes;
    for (const Operation &operation : script) {
        bytes.append(static_cast<char>(operation.code));
        for (int k = 0; k < catalogue().at(operation.code).arity; ++k)
            bytes.append(static_cast<char>(operation.numbers.value(k)));
    }
    return bytes;
}

} // namespace Velmora::Figura::Storm
