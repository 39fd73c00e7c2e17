#include "Platform/EventKit/Folders/StoreConfiguration.h"

#include "Platform/EventKit/Folders/Folder.h"
#include "Platform/EventKit/Folders/IniFile.h"
#include "Platform/EventKit/Folders/PeerConfigurations.h"
#include "Platform/EventKit/StoreBackend.h"

#include <QDir>

#include <algorithm>

namespace mintaro {

namespace {

constexpr qint64 kLargestConfiguration = 1024 * 1024;

/// Reads store.conf line by line.
class StoreConfigurationReader
{
public:
    StoreConfigurationReader(const QString &path, const BaseFolders &baseFolders)
        : m_path(path)
        , m_baseFolders(baseFolders)
    {
    }

    [[nodiscard]] StoreConfiguration read(const QString &text)
    {
        const std::vector<IniSection> sections = readIni(text);
        if (sections.size() > 1)
            fail(sections[1].line, QStringLiteral("sections have no meaning here"));
        for (const IniEntry &entry : sections.front().entries)
            take(entry);
        return m_configuration;
    }

private:
    void take(const IniEntry &entry)
    {
        if (entry.key == QLatin1String("root"))
            m_configuration.folders.push_back({ .path = pathOf(entry) });
        else if (entry.key == QLatin1String("address"))
            m_configuration.addresses.append(addressOf(entry));
        else if (entry.key == QLatin1String("default-calendar"))
            setOnce(m_configuration.defaultCalendar, entry);
        else if (entry.key == QLatin1String("default-reminders"))
            setOnce(m_configuration.defaultReminders, entry);
        else if (entry.key.isEmpty())
            fail(entry.line, QStringLiteral("\"%1\" is not of the form key = value").arg(entry.value));
        else
            fail(entry.line, QStringLiteral("the key \"%1\" is not known").arg(entry.key));
    }

    void setOnce(QString &path, const IniEntry &entry)
    {
        if (!path.isEmpty())
            fail(entry.line, QStringLiteral("%1 is given twice").arg(entry.key));
        path = pathOf(entry);
    }

    [[nodiscard]] QString pathOf(const IniEntry &entry) const
    {
        const QString path = m_baseFolders.expanded(entry.value);
        if (!QDir::isAbsolutePath(path))
            fail(entry.line, QStringLiteral("\"%1\" is no path that begins with / or ~/").arg(entry.value));
        return path;
    }

    [[nodiscard]] QString addressOf(const IniEntry &entry) const
    {
        const QString address = entry.value.toLower();
        const qsizetype at = address.indexOf(u'@');
        const bool hasSpace = std::any_of(address.begin(), address.end(), [](QChar c) { return c.isSpace(); });
        if (at < 1 || at == address.size() - 1 || hasSpace || address.contains(u':'))
            fail(entry.line, QStringLiteral("\"%1\" is no e-mail address").arg(entry.value));
        return address;
    }

    [[noreturn]] void fail(int line, const QString &text) const
    {
        throw EKError(QStringLiteral("%1:%2: %3").arg(escapedPath(m_path), QString::number(line), text).toStdString());
    }

    const QString m_path;
    const BaseFolders &m_baseFolders;
    StoreConfiguration m_configuration;
};

/// The text of store.conf; empty where there is none.
QString configurationText(const QString &path)
{
    const FileText file = readFile(path, kLargestConfiguration);
    if (!file.problem.isEmpty())
        throw EKError(QStringLiteral("%1: %2").arg(escapedPath(path), file.problem).toStdString());
    const std::optional<QString> text = fileName(file.bytes.value_or(QByteArray()));
    if (!text)
        throw EKError(QStringLiteral("%1: the text is not UTF-8").arg(escapedPath(path)).toStdString());
    return *text;
}

/// Takes the folders of the user's other calendar programs. khal comes first, since it says more about each of them.
void addPeers(StoreConfiguration &configuration, const BaseFolders &baseFolders)
{
    configuration.folders = khalFolders(baseFolders);
    configuration.files += peerFiles(baseFolders);
    const std::vector<ConfiguredFolder> more = vdirsyncerFolders(baseFolders);
    configuration.folders.insert(configuration.folders.end(), more.begin(), more.end());
}

void addOwnRoot(StoreConfiguration &configuration, const BaseFolders &baseFolders)
{
    const QString root = baseFolders.dataHome + QLatin1String("/mintaro/calendars");
    configuration.folders = { { .path = root } };
    configuration.isOwnRoot = true;
    if (configuration.defaultCalendar.isEmpty())
        configuration.defaultCalendar = root + QLatin1String("/calendar");
    if (configuration.defaultReminders.isEmpty())
        configuration.defaultReminders = root + QLatin1String("/reminders");
}

} // namespace

QString StoreConfiguration::filePath(const BaseFolders &baseFolders)
{
    return baseFolders.configHome + QLatin1String("/mintaro/store.conf");
}

StoreConfiguration StoreConfiguration::load(const BaseFolders &baseFolders)
{
    const QString path = filePath(baseFolders);
    StoreConfiguration configuration = StoreConfigurationReader(path, baseFolders).read(configurationText(path));
    configuration.files = QStringList { path };
    if (configuration.folders.empty())
        addPeers(configuration, baseFolders);
    if (configuration.folders.empty())
        addOwnRoot(configuration, baseFolders);
    return configuration;
}

StoreConfiguration StoreConfiguration::forRoot(const QString &path)
{
    StoreConfiguration configuration;
    configuration.folders.push_back({ .path = QDir::cleanPath(QDir::current().absoluteFilePath(path)) });
    return configuration;
}

} // namespace mintaro
