#include "files/JsonFields.h"

#include <cmath>
#include <limits>

namespace Editor {
namespace {

bool toInt(const QJsonValue &value, int *target)
{
    const double number = value.toDouble(std::numeric_limits<double>::quiet_NaN());
    const bool fits = number >= std::numeric_limits<int>::min() &&
                      number <= std::numeric_limits<int>::max() && std::floor(number) == number;
    if (fits) // not a number fails every comparison
        *target = static_cast<int>(number);
    return fits;
}

} // namespace

JsonFields::JsonFields(const QJsonValue &value, const QString &where, QString &problem)
    : m_object(value.toObject())
    , m_unread(m_object.keys())
    , m_where(where)
    , m_problem(problem)
{
    if (ok() && !value.isObject())
        m_problem = where.isEmpty() ? QStringLiteral("not an object")
                                    : QStringLiteral("%1: not an object").arg(where);
}

JsonFields::~JsonFields()
{
    if (!m_unread.isEmpty())
        fail(m_unread.first().left(40), QStringLiteral("unknown"));
}

void JsonFields::fail(const QString &key, const QString &reason)
{
    if (!ok())
        return;
    const QString dot = m_where.isEmpty() ? QString() : QStringLiteral(".");
    m_problem = QStringLiteral("%1%2%3: %4").arg(m_where, dot, key, reason);
}

void JsonFields::demand(const QString &key)
{
    if (!m_object.contains(key))
        fail(key, QStringLiteral("missing"));
}

QJsonValue JsonFields::take(const QString &key)
{
    m_unread.removeOne(key);
    return m_object.value(key);
}

void JsonFields::read(const QString &key, int *target, int lowest, int highest)
{
    const QJsonValue value = take(key);
    if (!has(key))
        return;
    int number = 0;
    if (!toInt(value, &number))
        fail(key, QStringLiteral("not a whole number"));
    else if (number < lowest || number > highest)
        fail(key,
             QStringLiteral("%1 is not between %2 and %3").arg(number).arg(lowest).arg(highest));
    else
        *target = number;
}

void JsonFields::read(const QString &key, bool *target)
{
    const QJsonValue value = take(key);
    if (!has(key))
        return;
    if (value.isBool())
        *target = value.toBool();
    else
        fail(key, QStringLiteral("neither true nor false"));
}

void JsonFields::read(const QString &key, QString *target, qsizetype longest)
{
    const QJsonValue value = take(key);
    if (!has(key))
        return;
    if (!value.isString())
        fail(key, QStringLiteral("not a text"));
    else if (value.toString().size() > longest)
        fail(key, QStringLiteral("longer than %1 characters").arg(longest));
    else
        *target = value.toString();
}

void JsonFields::read(const QString &key, QColor *target)
{
    QString name;
    constexpr qsizetype longestName = 9; // #aarrggbb
    read(key, &name, longestName);
    if (!has(key))
        return;
    const QColor color = name.startsWith(QLatin1Char('#')) ? QColor(name) : QColor();
    if (color.isValid())
        *target = color;
    else
        fail(key, QStringLiteral("not a colour"));
}

bool JsonFields::toInts(const QJsonValue &value, qsizetype count, QList<int> *ints)
{
    const QJsonArray array = value.toArray();
    if (!value.isArray() || array.size() != count)
        return false;
    for (const QJsonValue item : array) {
        int number = 0;
        if (!toInt(item, &number))
            return false;
        *ints << number;
    }
    return true;
}

void JsonFields::read(const QString &key, QRect *target)
{
    const QJsonValue value = take(key);
    if (!has(key))
        return;
    QList<int> ints;
    if (!toInts(value, 4, &ints)) {
        fail(key, QStringLiteral("not four whole numbers"));
        return;
    }
    // Beyond all limits either way, but a rectangle adds them up, which must not overflow.
    static constexpr int farOut = 1 << 29;
    const auto near = [&ints](int i) { return qBound(-farOut, ints.at(i), farOut); };
    *target = QRect(near(0), near(1), near(2), near(3));
}

void JsonFields::read(const QString &key, QPoint *target)
{
    const QJsonValue value = take(key);
    if (!has(key))
        return;
    QList<int> ints;
    if (toInts(value, 2, &ints))
        *target = QPoint(ints.at(0), ints.at(1));
    else
        fail(key, QStringLiteral("not two whole numbers"));
}

void JsonFields::readBase64(const QString &key, QByteArray *target, qsizetype longest)
{
    QString text;
    read(key, &text, longest * 4 / 3 + 4);
    if (!has(key))
        return;
    const auto decoded =
        QByteArray::fromBase64Encoding(text.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    if (decoded)
        *target = *decoded;
    else
        fail(key, QStringLiteral("damaged"));
}

QJsonArray JsonFields::array(const QString &key, qsizetype longest)
{
    const QJsonValue value = take(key);
    if (!has(key))
        return {};
    if (!value.isArray())
        fail(key, QStringLiteral("not a list"));
    else if (value.toArray().size() > longest)
        fail(key, QStringLiteral("more than %1").arg(longest));
    return ok() ? value.toArray() : QJsonArray();
}

QJsonValue JsonFields::object(const QString &key)
{
    return take(key);
}

} // namespace Editor
