#include "Platform/Foundation/UserDefaults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>

#include <cmath>
#include <sys/stat.h>

namespace mintaro {

namespace {

const QLatin1String kArrayMark("@array ");
const QLatin1String kDataMark("@data ");
const QLatin1String kTextMark("@text ");

QString jsonArray(const QStringList &values)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray::fromStringList(values)).toJson(QJsonDocument::Compact));
}

/// Empty where something in it is no text.
QStringList fromJsonArray(QStringView text)
{
    QStringList values;
    const QJsonArray array = QJsonDocument::fromJson(text.toUtf8()).array();
    for (const auto &value : array) {
        if (!value.isString())
            return {};
        values.append(value.toString());
    }
    return values;
}

/// Text that would not come back from a raw line is written as a list of one.
QString encodedText(const QString &text)
{
    const bool plain
        = !text.contains(u'\n') && !text.contains(u'\r') && text.trimmed() == text && !text.startsWith(u'@');
    return plain ? text : kTextMark + jsonArray({ text });
}

std::optional<QString> decodedText(const QString &value)
{
    if (value.startsWith(kArrayMark) || value.startsWith(kDataMark))
        return std::nullopt;
    if (!value.startsWith(kTextMark))
        return value;
    const QStringList texts = fromJsonArray(QStringView(value).mid(kTextMark.size()));
    return texts.isEmpty() ? std::nullopt : std::optional(texts.first());
}

/// QSettings hands over the whole file. What is before the first section has no prefix, and so has [General].
bool readFile(QIODevice &device, QSettings::SettingsMap &map)
{
    const QByteArray bytes = device.readAll();
    const QString text = QString::fromUtf8(bytes);
    if (text.contains(QChar::ReplacementCharacter) || text.contains(QChar::Null))
        return false;
    QString prefix;
    for (const auto &rawLine : QStringView(text).split(u'\n')) {
        const auto line = rawLine.trimmed();
        if (line.isEmpty() || line.startsWith(u'#') || line.startsWith(u';'))
            continue;
        if (line.startsWith(u'[') && line.endsWith(u']')) {
            const auto section = line.mid(1, line.size() - 2).trimmed();
            prefix = section == QLatin1String("General") ? QString() : section.toString() + u'/';
            continue;
        }
        const auto equals = line.indexOf(u'=');
        if (equals <= 0)
            return false;
        map.insert(prefix + line.left(equals).trimmed().toString(), line.mid(equals + 1).trimmed().toString());
    }
    return true;
}

bool writeFile(QIODevice &device, const QSettings::SettingsMap &map)
{
    QByteArray top;
    QMap<QString, QByteArray> sections;
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        const auto slash = it.key().indexOf(u'/');
        QByteArray &section = slash < 0 ? top : sections[it.key().left(slash)];
        section += it.key().mid(slash + 1).toUtf8() + '=' + it.value().toString().toUtf8() + '\n';
    }
    QByteArray text = top;
    for (auto it = sections.cbegin(); it != sections.cend(); ++it)
        text += '[' + it.key().toUtf8() + "]\n" + it.value();
    return device.write(text) == text.size();
}

QSettings::Format fileFormat()
{
    static const QSettings::Format format
        = QSettings::registerFormat(QStringLiteral("conf"), readFile, writeFile, Qt::CaseSensitive);
    return format;
}

} // namespace

UserDefaults::UserDefaults(const QString &file, Logger logger)
    : m_file(file)
    , m_logger(std::move(logger))
{
    // Noted before the reading, so that a change in between is read again rather than missed.
    [[maybe_unused]] const bool isNew = isUntouched();
    m_values = readAll();
}

void UserDefaults::follow()
{
    QDir().mkpath(QFileInfo(m_file).path());
    watchFile();
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &UserDefaults::reload);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &UserDefaults::reload);
    reload();
}

QString UserDefaults::standardFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/mintaro/mintaro.conf");
}

void UserDefaults::openFile()
{
    const bool wasReadOnly = m_isReadOnly;
    // A fresh object each time: one that has met a broken file would write over it at its next chance.
    m_settings = std::make_unique<QSettings>(m_file, fileFormat());
    m_isBroken = m_settings->status() == QSettings::FormatError
        || (QFileInfo::exists(m_file) && !QFileInfo(m_file).isReadable());
    m_isReadOnly = m_isBroken || !m_settings->isWritable();
    if (m_isBroken)
        m_logger.error(QStringLiteral("%1 cannot be read; the defaults hold, and it is left as it is").arg(m_file));
    else if (m_isReadOnly && !wasReadOnly)
        m_logger.info(QStringLiteral("%1 is read-only; changes last until the program ends").arg(m_file));
}

QMap<QString, QString> UserDefaults::readAll()
{
    openFile();
    QMap<QString, QString> values;
    if (m_isBroken)
        return values;
    const QStringList keys = m_settings->allKeys();
    for (const QString &key : keys)
        values.insert(key, m_settings->value(key).toString());
    return values;
}

void UserDefaults::watchFile()
{
    m_watcher.addPath(QFileInfo(m_file).path());
    if (QFileInfo::exists(m_file))
        m_watcher.addPath(m_file);
}

bool UserDefaults::isUntouched()
{
    struct stat status
    {
    };
    std::array<qint64, 3> state {};
    if (::stat(QFile::encodeName(m_file).constData(), &status) == 0)
        state = { static_cast<qint64>(status.st_ino), status.st_size,
            status.st_mtim.tv_sec * qint64 { 1'000'000'000 } + status.st_mtim.tv_nsec };
    return std::exchange(m_state, state) == state;
}

void UserDefaults::reload()
{
    // The folder holds other files too, temporary ones of our own among them.
    if (isUntouched())
        return;
    // Programs that replace a file by renaming take its watch away.
    watchFile();
    const QMap<QString, QString> before = std::exchange(m_values, readAll());
    // Whoever wrote it had the last word.
    if (!std::exchange(m_unsaved, {}).isEmpty())
        Q_EMIT hasUnsavedChangesChanged();
    QStringList keys = before.keys() + m_values.keys();
    keys.removeDuplicates();
    for (const QString &key : std::as_const(keys)) {
        if (before.contains(key) != m_values.contains(key) || before.value(key) != m_values.value(key))
            Q_EMIT changed(key);
    }
}

void UserDefaults::write(const QString &key, const std::optional<QString> &value)
{
    const bool isSame = value ? m_values.contains(key) && m_values.value(key) == *value : !m_values.contains(key);
    if (isSame)
        return;
    if (value)
        m_values.insert(key, *value);
    else
        m_values.remove(key);
    const bool hadUnsavedChanges = hasUnsavedChanges();
    m_unsaved.insert(key, value);
    save();
    if (hasUnsavedChanges() != hadUnsavedChanges)
        Q_EMIT hasUnsavedChangesChanged();
    Q_EMIT changed(key);
}

void UserDefaults::save()
{
    QDir().mkpath(QFileInfo(m_file).path());
    // What could not be written may have become so since: a disk that was full, or mounted for reading.
    if (m_isReadOnly && !m_isBroken)
        openFile();
    if (m_isReadOnly)
        return;
    for (auto change = m_unsaved.cbegin(); change != m_unsaved.cend(); ++change) {
        if (change.value())
            m_settings->setValue(change.key(), *change.value());
        else
            m_settings->remove(change.key());
    }
    m_settings->sync();
    if (m_settings->status() == QSettings::NoError) {
        m_unsaved.clear();
        return;
    }
    m_isReadOnly = true;
    m_logger.error(QStringLiteral("%1 cannot be written; changes last until the program ends").arg(m_file));
}

bool UserDefaults::hasObjectForKey(const QString &key) const
{
    return m_values.contains(key);
}

std::optional<bool> UserDefaults::boolForKey(const QString &key) const
{
    const QString text = m_values.value(key).toLower();
    if (text == QLatin1String("1") || text == QLatin1String("true") || text == QLatin1String("yes"))
        return true;
    if (text == QLatin1String("0") || text == QLatin1String("false") || text == QLatin1String("no"))
        return false;
    return std::nullopt;
}

int UserDefaults::integerForKey(const QString &key) const
{
    return m_values.value(key).toInt();
}

std::optional<double> UserDefaults::doubleForKey(const QString &key) const
{
    bool ok = false;
    const double value = m_values.value(key).toDouble(&ok);
    return ok && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<QString> UserDefaults::stringForKey(const QString &key) const
{
    const auto it = m_values.constFind(key);
    return it == m_values.cend() ? std::nullopt : decodedText(*it);
}

QStringList UserDefaults::stringArrayForKey(const QString &key) const
{
    const QString value = m_values.value(key);
    return value.startsWith(kArrayMark) ? fromJsonArray(QStringView(value).mid(kArrayMark.size())) : QStringList();
}

QByteArray UserDefaults::dataForKey(const QString &key) const
{
    const QString value = m_values.value(key);
    if (!value.startsWith(kDataMark))
        return {};
    const auto data = QByteArray::fromBase64Encoding(
        value.mid(kDataMark.size()).toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    return data ? data.decoded : QByteArray();
}

void UserDefaults::setBool(bool value, const QString &key)
{
    write(key, value ? QStringLiteral("true") : QStringLiteral("false"));
}

void UserDefaults::setInteger(int value, const QString &key)
{
    write(key, QString::number(value));
}

void UserDefaults::setDouble(double value, const QString &key)
{
    write(key, QString::number(value));
}

void UserDefaults::setString(const QString &value, const QString &key)
{
    write(key, encodedText(value));
}

void UserDefaults::setStringArray(const QStringList &value, const QString &key)
{
    write(key, kArrayMark + jsonArray(value));
}

void UserDefaults::setData(const QByteArray &value, const QString &key)
{
    write(key, kDataMark + QString::fromLatin1(value.toBase64()));
}

void UserDefaults::removeObjectForKey(const QString &key)
{
    write(key, std::nullopt);
}

} // namespace mintaro
