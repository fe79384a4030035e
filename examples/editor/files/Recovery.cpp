#include "files/Recovery.h"

#include "files/DocumentFile.h"
#include "model/Document.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

namespace Editor {
namespace {

const QString copySuffix = QStringLiteral(".recovery");
const QString lockSuffix = QStringLiteral(".lock");

constexpr std::chrono::seconds usualDelay{10};

QString lockOf(const QString &copy)
{
    return copy.chopped(copySuffix.size()) + lockSuffix;
}

// A session that lives holds its lock; that of a crashed one is taken over.
bool isAbandoned(const QString &copy)
{
    QLockFile lock(lockOf(copy));
    lock.setStaleLockTime(0);
    return lock.tryLock(0);
}

bool read(const QString &copy, Recovery::Found *found)
{
    QString problem;
    const QJsonObject object =
        QJsonDocument::fromJson(DocumentFile::readAll(copy, &problem)).object();
    const ReadResult result =
        DocumentReader::read(object.value(QStringLiteral("document")).toObject());
    *found = {copy, object.value(QStringLiteral("origin")).toString(), result.content};
    return problem.isEmpty() && result.ok();
}

} // namespace

QList<Recovery::Found> Recovery::abandoned(const QString &folder)
{
    QList<Found> result;
    const QFileInfoList copies =
        QDir(folder).entryInfoList({QLatin1Char('*') + copySuffix}, QDir::Files, QDir::Time);
    for (const QFileInfo &copy : copies) {
        Found found;
        if (isAbandoned(copy.filePath()) && read(copy.filePath(), &found))
            result << found;
    }
    return result;
}

void Recovery::discard(const Found &found)
{
    QFile::remove(found.file);
}

Recovery::Recovery(const Document &document, const QString &folder, QObject *parent)
    : QObject(parent)
    , m_document(document)
    , m_folder(folder)
    , m_name(QUuid::createUuid().toString(QUuid::WithoutBraces))
    , m_lock(path(lockSuffix))
{
    QDir().mkpath(folder);
    m_lock.setStaleLockTime(0);
    m_lock.tryLock(0);
    m_timer.setSingleShot(true);
    m_timer.setInterval(usualDelay);
    connect(&m_timer, &QTimer::timeout, this, &Recovery::writeCopy);
}

Recovery::~Recovery() = default;

void Recovery::setDelay(std::chrono::milliseconds delay)
{
    m_timer.setInterval(delay);
}

QString Recovery::path(const QString &suffix) const
{
    return m_folder + QLatin1Char('/') + m_name + suffix;
}

void Recovery::noteChange(const QString &origin)
{
    m_origin = origin;
    if (!m_timer.isActive())
        m_timer.start();
}

void Recovery::writeNow(const QString &origin)
{
    m_origin = origin;
    writeCopy();
}

void Recovery::settle()
{
    m_timer.stop();
    QFile::remove(path(copySuffix));
}

// That it cannot be written is no reason to disturb: the next change tries again.
void Recovery::writeCopy()
{
    const QJsonObject object{
        {QStringLiteral("origin"), m_origin},
        {QStringLiteral("document"), DocumentWriter::toObject(m_document.content())}};
    DocumentFile::writeAll(path(copySuffix), QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace Editor
