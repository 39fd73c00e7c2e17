#pragma once

#include "Platform/AppKit/MenuItem.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace mintaro {

/// The entries of a menu that is drawn inside one of our windows.
class ContextMenuModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A controller fills it")

public:
    enum Role { TitleRole = Qt::UserRole + 1, SymbolRole, IsSeparatorRole, IsDestructiveRole };
    Q_ENUM(Role)

    using QAbstractListModel::QAbstractListModel;

    void setItems(std::vector<MenuItem> items);
    /// The user chose that entry. Its action follows once the menu is gone: what it opens gives the keyboard back to
    /// what had it before the menu.
    Q_INVOKABLE void trigger(int row);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    std::vector<MenuItem> m_items;
};

} // namespace mintaro
