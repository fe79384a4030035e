#pragma once

#include <QObject>

class QMenu;
class QWidget;

namespace Editor {

class Keeper;
class Workbench;

/// The file menu: new, open, save, print, export.
class FileActions : public QObject
{
    Q_OBJECT

public:
    FileActions(Workbench &bench, Keeper &keeper, QWidget *window);

    void fill(QMenu *menu);

    /// By the suffix of \a path. One line that says what went wrong, or nothing.
    QString exportTo(const QString &path, bool onlySelection, bool tiled);

Q_SIGNALS:
    void failed(const QString &problem);
    void done(const QString &message);
    void quitWanted();

private:
    void addFileActions(QMenu *menu);
    void addSamples(QMenu *menu);
    void addExportActions(QMenu *menu);
    void showRecent(QMenu *menu);
    void askAndExport(bool onlySelection, bool tiled);
    void print();

    Workbench &m_bench;
    Keeper &m_keeper;
    QWidget *m_window;
};

} // namespace Editor
