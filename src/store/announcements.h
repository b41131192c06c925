#pragma once

#include <QList>

#include <functional>
#include <utility>

namespace pingwell {

/// Announcements of changes that wait until all of them are in place, so that nobody sees half of what belongs
/// together.
class Announcements
{
public:
    /// Puts the value in place; a real change is announced by that signal of the owner later.
    template<typename Owner, typename Value>
    void put(Owner *owner, Value &field, Value &fresh, void (Owner::*changed)())
    {
        if (field == fresh)
            return;
        std::swap(field, fresh);
        m_waiting << [owner, changed] { (owner->*changed)(); };
    }

    /// Makes those that wait, in the order of the changes.
    void make()
    {
        for (const auto &announce : std::exchange(m_waiting, {}))
            announce();
    }

private:
    QList<std::function<void()>> m_waiting;
};

} // namespace pingwell
