#pragma once

#include "Platform/Foundation/Environment.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// All time zones to choose one from, as far as their identifiers contain what is searched for. A row's abbreviation is
/// worked out when it comes in sight.
class TimezonePickerViewController : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The settings have one")
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)

public:
    enum Role { TitleRole = Qt::UserRole + 1, AbbreviationRole };
    Q_ENUM(Role)

    /// `environment` must outlive the object.
    explicit TimezonePickerViewController(const Environment &environment);

    [[nodiscard]] const QString &searchText() const { return m_searchText; }
    void setSearchText(const QString &text);
    [[nodiscard]] const QStringList &filteredTimezones() const { return m_filteredTimezones; }

    /// The user's choice of a row.
    Q_INVOKABLE void select(int row);
    Q_INVOKABLE void cancel();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void searchTextChanged();
    /// Before `dismissed`.
    void selected(const QString &timezoneID);
    void dismissed();

private:
    const Environment &m_environment;
    const QStringList m_timezones;
    QString m_searchText;
    QStringList m_filteredTimezones;
};

} // namespace mintaro
