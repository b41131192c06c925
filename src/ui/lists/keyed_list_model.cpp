#include "ui/lists/keyed_list_model.h"

#include "ui/lists/list_steps.h"

#include <QSet>

#include <algorithm>

namespace pingwell {

namespace {

void removeRepeated(QList<KeyedRow> &rows)
{
    QSet<QString> seen;
    rows.removeIf([&seen](const KeyedRow &row) {
        const bool repeated = seen.contains(row.id);
        seen.insert(row.id);
        return repeated;
    });
}

QStringList idsOf(const QList<KeyedRow> &rows)
{
    QStringList ids;
    ids.reserve(rows.size());
    for (const KeyedRow &row : rows)
        ids.append(row.id);
    return ids;
}

} // namespace

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
    const auto sameID = [](const KeyedRow &left, const KeyedRow &right) { return left.id == right.id; };
    if (!std::equal(m_rows.begin(), m_rows.end(), rows.begin(), rows.end(), sameID)) {
        removeRepeated(rows);
        arrange(rows);
    }
    updateValues(rows);
}

void KeyedListModel::arrange(const QList<KeyedRow> &rows)
{
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
    const auto differs = [&](qsizetype row) { return m_rows.at(row).value != rows.at(row).value; };
    for (qsizetype row = 0; row < rows.size(); ++row) {
        const qsizetype first = row;
        for (; row < rows.size() && differs(row); ++row)
            m_rows[row].value = rows.at(row).value;
        if (row > first)
            emit dataChanged(index(int(first)), index(int(row - 1)), {ValueRole});
    }
}

} // namespace pingwell
