#include "Views/Components/ContextMenuModel.h"

namespace mintaro {

void ContextMenuModel::setItems(std::vector<MenuItem> items)
{
    beginResetModel();
    m_items = std::move(items);
    endResetModel();
}

void ContextMenuModel::trigger(int row)
{
    if (!index(row).isValid())
        return;
    if (const auto &action = m_items[static_cast<std::size_t>(row)].action)
        QMetaObject::invokeMethod(this, action, Qt::QueuedConnection);
}

int ContextMenuModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant ContextMenuModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const MenuItem &item = m_items[static_cast<std::size_t>(index.row())];
    switch (role) {
    case TitleRole:
        return item.title;
    case SymbolRole:
        return item.symbol;
    case IsSeparatorRole:
        return item.isSeparator;
    case IsDestructiveRole:
        return item.isDestructive;
    default:
        return {};
    }
}

QHash<int, QByteArray> ContextMenuModel::roleNames() const
{
    return { { TitleRole, "title" }, { SymbolRole, "symbol" }, { IsSeparatorRole, "isSeparator" },
        { IsDestructiveRole, "isDestructive" } };
}

} // namespace mintaro
