#include "Platform/EventKit/Folders/NewFolder.h"

#include "Platform/EventKit/Folders/Folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace mintaro {

namespace {

QString draftTemplate(const QString &path)
{
    const QFileInfo place(path);
    QDir().mkpath(place.path());
    return place.path() + QLatin1String("/.") + place.fileName() + QLatin1String("-XXXXXX");
}

[[noreturn]] void fail(const QString &path, const QString &problem)
{
    throw EKError(QStringLiteral("%1: %2").arg(escapedPath(path), problem).toStdString());
}

} // namespace

NewFolder::NewFolder(const QString &path)
    : m_path(path)
    , m_draft(draftTemplate(path))
{
    if (!m_draft.isValid())
        fail(path, m_draft.errorString());
}

void NewFolder::write(const QString &relativePath, const QByteArray &bytes)
{
    const QString path = m_draft.filePath(relativePath);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        fail(path, file.errorString());
}

void NewFolder::finish()
{
    // rename(2) puts a folder in the place of an empty one, and of nothing else.
    if (std::rename(m_draft.path().toUtf8().constData(), m_path.toUtf8().constData()) != 0)
        fail(m_path, QString::fromLocal8Bit(std::strerror(errno)));
    m_draft.setAutoRemove(false);
}

} // namespace mintaro
