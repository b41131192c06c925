#include "ui/lists/list_steps.h"

#include <QHash>

#include <algorithm>
#include <vector>

namespace pingwell {

namespace {

using Positions = QHash<QString, qsizetype>;

qsizetype commonHead(const QStringList &before, const QStringList &after)
{
    return std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first - before.begin();
}

qsizetype commonTail(const QStringList &before, const QStringList &after, qsizetype head)
{
    const auto end = before.rend() - head;
    return std::mismatch(before.rbegin(), end, after.rbegin(), after.rend() - head).first - before.rbegin();
}

Positions positionsOf(const QStringList &ids)
{
    Positions positions;
    positions.reserve(ids.size());
    for (qsizetype row = 0; row < ids.size(); ++row)
        positions.insert(ids.at(row), row);
    return positions;
}

void appendRemovals(QList<ListStep> &steps, const QStringList &before, const Positions &wanted)
{
    qsizetype end = before.size();
    while (end > 0) {
        qsizetype first = end;
        while (first > 0 && !wanted.contains(before.at(first - 1)))
            --first;
        if (first < end)
            steps.append({ListStep::Kind::remove, first, end - first, 0});
        end = first - 1;
    }
}

/// Which elements of `values` (all distinct) form one longest rising subsequence.
std::vector<bool> longestRising(const std::vector<qsizetype> &values)
{
    std::vector<qsizetype> tails;                       // index of the smallest end of a rising run of each length
    std::vector<qsizetype> previous(values.size(), -1); // the element before, in the best run that ends here
    for (qsizetype index = 0; index < qsizetype(values.size()); ++index) {
        const auto place =
            std::lower_bound(tails.begin(), tails.end(), values[size_t(index)],
                             [&](qsizetype tail, qsizetype value) { return values[size_t(tail)] < value; });
        if (place != tails.begin())
            previous[size_t(index)] = *(place - 1);
        if (place == tails.end())
            tails.push_back(index);
        else
            *place = index;
    }
    std::vector<bool> rising(values.size(), false);
    for (qsizetype index = tails.empty() ? -1 : tails.back(); index >= 0; index = previous[size_t(index)])
        rising[size_t(index)] = true;
    return rising;
}

/// Which rows have to move, by their wanted ranks in rising order: those outside a longest rising run. `order` holds
/// the wanted ranks of the rows that stay, as they stand.
std::vector<qsizetype> ranksToMove(const std::vector<qsizetype> &order)
{
    if (std::is_sorted(order.begin(), order.end()))
        return {};
    const std::vector<bool> stays = longestRising(order);
    std::vector<qsizetype> moved;
    for (size_t index = 0; index < order.size(); ++index) {
        if (!stays[index])
            moved.push_back(order[index]);
    }
    std::sort(moved.begin(), moved.end());
    return moved;
}

/// Each moved row goes behind the row that is to stand before it.
void appendMoves(QList<ListStep> &steps, std::vector<qsizetype> order, const std::vector<qsizetype> &moved)
{
    for (const qsizetype rank : moved) {
        const auto from = std::find(order.begin(), order.end(), rank);
        const qsizetype first = from - order.begin();
        order.erase(from);
        const auto before = std::find(order.begin(), order.end(), rank - 1);
        const auto target = rank == 0 ? order.begin() : before + 1;
        const qsizetype to = target - order.begin();
        order.insert(target, rank);
        if (first != to)
            steps.append({ListStep::Kind::move, first, 1, to});
    }
}

void appendInsertions(QList<ListStep> &steps, const QStringList &after, const Positions &present)
{
    for (qsizetype row = 0; row < after.size(); ++row) {
        const qsizetype first = row;
        while (row < after.size() && !present.contains(after.at(row)))
            ++row;
        if (row > first)
            steps.append({ListStep::Kind::insert, first, row - first, 0});
    }
}

/// The ranks, among the rows that stay, in the order in which they stand now.
std::vector<qsizetype> ranksOfKept(const QStringList &before, const QStringList &after, const Positions &present)
{
    Positions ranks;
    for (const QString &id : after) {
        if (present.contains(id))
            ranks.insert(id, ranks.size());
    }
    std::vector<qsizetype> order;
    order.reserve(size_t(ranks.size()));
    for (const QString &id : before) {
        if (const auto rank = ranks.constFind(id); rank != ranks.constEnd())
            order.push_back(*rank);
    }
    return order;
}

/// The steps between two lists that differ at both ends.
QList<ListStep> stepsBetween(const QStringList &before, const QStringList &after)
{
    QList<ListStep> steps;
    const Positions present = positionsOf(before);
    appendRemovals(steps, before, positionsOf(after));
    const std::vector<qsizetype> order = ranksOfKept(before, after, present);
    const std::vector<qsizetype> moved = ranksToMove(order);
    if (qsizetype(moved.size()) <= maximumListSteps)
        appendMoves(steps, order, moved);
    appendInsertions(steps, after, present);
    if (qsizetype(moved.size()) > maximumListSteps || steps.size() > maximumListSteps)
        return {{ListStep::Kind::remove, 0, before.size(), 0}, {ListStep::Kind::insert, 0, after.size(), 0}};
    return steps;
}

} // namespace

QList<ListStep> listSteps(const QStringList &wholeBefore, const QStringList &wholeAfter)
{
    // Most changes are small: what is alike at either end is not looked at twice.
    const qsizetype head = commonHead(wholeBefore, wholeAfter);
    const qsizetype tail = commonTail(wholeBefore, wholeAfter, head);
    QList<ListStep> steps = stepsBetween(wholeBefore.mid(head, wholeBefore.size() - head - tail),
                                         wholeAfter.mid(head, wholeAfter.size() - head - tail));
    for (ListStep &step : steps) {
        step.first += head;
        step.to += step.kind == ListStep::Kind::move ? head : 0;
    }
    return steps;
}

} // namespace pingwell
