#pragma once

#include "model/Content.h"

#include <QLockFile>
#include <QTimer>

#include <chrono>

namespace Editor {

class Document;

/// Keeps a copy of unsaved work in a folder of its own, for the case that the program ends without
/// having asked.
class Recovery : public QObject
{
    Q_OBJECT

public:
    /// What a session that is no longer there has left.
    struct Found
    {
        QString file;   ///< The copy.
        QString origin; ///< The file that was edited; empty for a new document.
        Content content;
    };

    static QList<Found> abandoned(const QString &folder); ///< Damaged copies are left out.
    static void discard(const Found &found);

    /// \a folder is made when it is missing. \a document has to outlive this.
    Recovery(const Document &document, const QString &folder, QObject *parent = nullptr);
    ~Recovery() override; ///< Keeps the copy: call settle() when all is well.

    void setDelay(std::chrono::milliseconds delay); ///< From a change to the copy; 10 seconds.

    /// The document has changed and is not saved. Changes that follow do not put the copy off.
    void noteChange(const QString &origin);
    void writeNow(const QString &origin); ///< The same without a delay.
    void settle(); ///< The document is saved or given up: there is nothing to recover.

private:
    void writeCopy();
    QString path(const QString &suffix) const;

    const Document &m_document;
    QString m_folder;
    QString m_name;
    QString m_origin;
    QLockFile m_lock;
    QTimer m_timer;
};

} // namespace Editor
