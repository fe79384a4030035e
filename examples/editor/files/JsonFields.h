#pragma once

#include <QColor>
#include <QJsonArray>
#include <QJsonObject>
#include <QPoint>
#include <QRect>

namespace Editor {

/// Reads the members of one JSON object and remembers the first thing that is wrong.
///
/// A member that is missing leaves its target as it is, unless it is demanded. After a problem
/// nothing is read any more, so that the first one is the one that is told.
class JsonFields
{
public:
    /// \a where names the object in messages; \a problem, shared by all readers of a file, gets the
    /// message.
    JsonFields(const QJsonValue &value, const QString &where, QString &problem);
    ~JsonFields(); ///< A member that nobody has read is a problem, too.

    JsonFields(const JsonFields &other) = delete;
    JsonFields &operator=(const JsonFields &other) = delete;

    bool ok() const { return m_problem.isEmpty(); }
    void fail(const QString &key, const QString &reason);

    void demand(const QString &key);
    void read(const QString &key, int *target, int lowest, int highest);
    void read(const QString &key, bool *target);
    void read(const QString &key, QString *target, qsizetype longest);
    void read(const QString &key, QColor *target);
    void read(const QString &key, QRect *target);
    void read(const QString &key, QPoint *target);
    void readBase64(const QString &key, QByteArray *target, qsizetype longest);
    QJsonArray array(const QString &key, qsizetype longest);
    QJsonValue object(const QString &key); ///< Null when it is missing.

    /// \a find turns a word into an optional value.
    template<class Value, class Find>
    void readWord(const QString &key, Value *target, const Find &find)
    {
        QString word;
        constexpr qsizetype longestWord = 100;
        read(key, &word, longestWord);
        if (!ok() || !m_object.contains(key))
            return;
        if (const auto value = find(word))
            *target = *value;
        else
            fail(key, QStringLiteral("'%1' is unknown").arg(word));
    }

    /// Whole numbers only, within what an int can hold.
    static bool toInts(const QJsonValue &value, qsizetype count, QList<int> *ints);

private:
    QJsonValue take(const QString &key);
    bool has(const QString &key) const { return ok() && m_object.contains(key); }

    QJsonObject m_object;
    QStringList m_unread;
    QString m_where;
    QString &m_problem;
};

} // namespace Editor
