#pragma once

#include <QList>
#include <QStringList>

namespace pingwell {

/// One change of a list on the way from an old order of ids to a new one.
struct ListStep
{
    enum class Kind { remove, move, insert };

    Kind kind = Kind::remove;
    /// The first row concerned, in the list as the steps before have left it.
    qsizetype first = 0;
    /// How many rows are removed or inserted; a move concerns one.
    qsizetype count = 1;
    /// Where a moved row stands afterwards.
    qsizetype to = 0;

    friend bool operator==(const ListStep &, const ListStep &) = default;
};

/// The most steps that a change is taken in: each costs time in proportion to the length of the list.
inline constexpr qsizetype maximumListSteps = 200;

/// The steps that turn `before` into `after`, to be taken in order: removals from the end, then moves, then insertions
/// from the start, neighbours taken together. Rows that keep their order among themselves are left alone, and as many
/// as possible do. Where that would take more than `maximumListSteps`, everything from the first to the last row that
/// differs is removed in one step and inserted in another. The ids of each list are distinct.
[[nodiscard]] QList<ListStep> listSteps(const QStringList &before, const QStringList &after);

} // namespace pingwell
