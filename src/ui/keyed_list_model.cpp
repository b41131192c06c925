#include "ui/keyed_list_model.h"

#include "ui/list_steps.h"

#include <QSet>

#include <algorithm>

namespace pingwell {

KeyedListModel::KeyedListModel(const QByteArray &valueName, QObject *parent)
    : QAbstractListModel(parent)
    , m_roleNames{{ValueRole, valueName}}
{
}

int KeyedListModel::rowOf(const QString &id) const
{
    const auto isIt = [&id](const KeyedRow &row) { return row.id == id; };
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), isIt);
    return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

int KeyedListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant KeyedListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid) || role != ValueRole)
        return {};
    return presented(m_rows.at(index.row()).value);
}

void KeyedListModel::setRows(QList<KeyedRow> rows)
{
    QSet<QString> seen;
    rows.removeIf([&seen](const KeyedRow &row) {
        const bool repeated = seen.contains(row.id);
        seen.insert(row.id);
        return repeated;
    });
    const auto idsOf = [](const QList<KeyedRow> &list) {
        QStringList ids;
        ids.reserve(list.size());
        for (const KeyedRow &row : list)
            ids.append(row.id);
        return ids;
    };

    const qsizetype countBefore = m_rows.size();
    const QList<ListStep> steps = listSteps(idsOf(m_rows), idsOf(rows));
    for (const ListStep &step : steps) {
        switch (step.kind) {
        case ListStep::Kind::remove:
            removeRange(step.first, step.count);
            break;
        case ListStep::Kind::move:
            moveRow(step.first, step.to);
            break;
        case ListStep::Kind::insert:
            insertRange(step.first, rows.mid(step.first, step.count));
            break;
        }
    }
    updateValues(rows);
    if (m_rows.size() != countBefore)
        emit countChanged();
}

void KeyedListModel::removeRange(qsizetype first, qsizetype count)
{
    beginRemoveRows({}, int(first), int(first + count - 1));
    m_rows.remove(first, count);
    endRemoveRows();
}

void KeyedListModel::moveRow(qsizetype from, qsizetype to)
{
    // The framework names the row before which the moved one goes, in the list as it is before the move.
    beginMoveRows({}, int(from), int(from), {}, int(to > from ? to + 1 : to));
    m_rows.move(from, to);
    endMoveRows();
}

void KeyedListModel::insertRange(qsizetype first, const QList<KeyedRow> &rows)
{
    beginInsertRows({}, int(first), int(first + rows.size() - 1));
    m_rows.insert(first, rows.size(), KeyedRow{});
    std::copy(rows.begin(), rows.end(), m_rows.begin() + first);
    endInsertRows();
}

void KeyedListModel::updateValues(const QList<KeyedRow> &rows)
{
    for (qsizetype row = 0; row < rows.size(); ++row) {
        if (m_rows.at(row).value == rows.at(row).value)
            continue;
        m_rows[row].value = rows.at(row).value;
        emit dataChanged(index(int(row)), index(int(row)), {ValueRole});
    }
}

} // namespace pingwell
