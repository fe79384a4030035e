#pragma once

#include <QStringList>

class QSettings;

namespace Editor {

/// The files that were opened or saved last, kept from one run to the next.
class RecentFiles
{
public:
    static constexpr qsizetype longest = 8;

    explicit RecentFiles(QSettings &settings); ///< Has to outlive this.

    QStringList paths() const; ///< The latest first, those that are gone left out.
    void add(const QString &path);
    void clear();

private:
    QSettings &m_settings;
};

} // namespace Editor
