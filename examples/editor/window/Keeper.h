#pragma once

#include "files/RecentFiles.h"
#include "files/Recovery.h"

class QSettings;
class QWidget;

namespace Editor {

class Workbench;

/// Keeps the document on disk: which file it is, opening and saving, what is unsaved, the copy for
/// recovery.
class Keeper : public QObject
{
    Q_OBJECT

public:
    /// \a recoveryFolder is for copies of unsaved work; \a settings and \a bench have to outlive
    /// this.
    Keeper(Workbench &bench, QSettings &settings, const QString &recoveryFolder, QWidget *window);

    QString path() const { return m_path; } ///< Empty for a document without a file.
    QString name() const;                   ///< For titles.
    bool isModified() const;
    RecentFiles &recentFiles() { return m_recent; }
    Recovery &recovery() { return m_recovery; }

    // Each returns false when it was not done. What is unsaved is asked about before.

    bool startNew();
    bool open(const QString &path); ///< A problem is announced by failed(), and changes nothing.
    bool askAndOpen();
    bool openSample(const QString &name);
    bool save(); ///< Asks for a name when there is none.
    bool saveAs();
    bool saveTo(const QString &path);
    bool mayLeave(); ///< Asks what is to become of unsaved work.

    /// Takes over the work of a session that has crashed, as unsaved.
    void recover(const Recovery::Found &found);

    static QStringList sampleNames();

Q_SIGNALS:
    void pathChanged();
    void failed(const QString &problem); ///< One line.
    void done(const QString &message);   ///< One line.

private:
    void noteStep();
    void adopt(const Content &content, const QString &path);
    void setPath(const QString &path);

    Workbench &m_bench;
    QWidget *m_window;
    RecentFiles m_recent;
    Recovery m_recovery;
    QString m_path;
};

} // namespace Editor
