#include "files/RecentFiles.h"

#include <QFileInfo>
#include <QSettings>

namespace Editor {
namespace {

const QString key = QStringLiteral("recentFiles");

} // namespace

RecentFiles::RecentFiles(QSettings &settings)
    : m_settings(settings)
{
}

QStringList RecentFiles::paths() const
{
    QStringList paths = m_settings.value(key).toStringList();
    paths.removeIf([](const QString &path) { return !QFileInfo::exists(path); });
    return paths;
}

void RecentFiles::add(const QString &path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    QStringList paths = m_settings.value(key).toStringList();
    paths.removeAll(absolute);
    paths.prepend(absolute);
    m_settings.setValue(key, paths.mid(0, longest));
}

void RecentFiles::clear()
{
    m_settings.remove(key);
}

} // namespace Editor
