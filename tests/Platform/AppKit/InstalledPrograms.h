#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace mintaro {

/// A folder of programs that stands first in the search path, and the only one with desktop entries.
class InstalledPrograms : public testing::Test
{
protected:
    InstalledPrograms()
    {
        qputenv("PATH", folder.path().toLocal8Bit() + ":/bin:/usr/bin");
        qputenv("XDG_DATA_HOME", folder.path().toLocal8Bit());
        qputenv("XDG_DATA_DIRS", "/nowhere");
        QDir(folder.path()).mkdir(QStringLiteral("applications"));
    }
    ~InstalledPrograms() override
    {
        qputenv("PATH", m_path);
        qunsetenv("XDG_DATA_HOME");
        qunsetenv("XDG_DATA_DIRS");
    }

    /// `body`: of a shell script that runs in the folder.
    void install(const char *program, const QByteArray &body)
    {
        write(QLatin1String(program), "#!/bin/sh\ncd " + folder.path().toLocal8Bit() + "\n" + body);
        QFile::setPermissions(
            folder.filePath(QLatin1String(program)), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void addEntry(const QString &name, const QByteArray &exec, const QByteArray &more = {})
    {
        write(QStringLiteral("applications/%1.desktop").arg(name),
            "[Desktop Action new]\nExec=wrong\n[Desktop Entry]\nName[it]=Nome\nName=A name\nExec=" + exec + '\n' + more
                + "\n[Desktop Action old]\nExec=wrong\n");
    }
    void addEntry(const char *name, const QByteArray &exec) { addEntry(QString::fromLatin1(name), exec); }

    [[nodiscard]] QByteArray content(const char *name) const
    {
        QFile file(folder.filePath(QLatin1String(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;

private:
    void write(const QString &name, const QByteArray &text) const
    {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            throw std::runtime_error("cannot write");
    }

    const QByteArray m_path = qgetenv("PATH");
};

} // namespace mintaro
