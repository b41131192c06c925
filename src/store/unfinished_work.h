#pragma once

#include <functional>
#include <memory>

namespace pingwell {

/// What must not be cut off by the end of the program: what the person did and the service has not answered yet. Each
/// piece lasts as long as what `begin` returned, wherever that is kept. Main thread.
class UnfinishedWork
{
public:
    /// `ended` is called whenever the last piece has ended, while this object lives.
    explicit UnfinishedWork(std::function<void()> ended);

    [[nodiscard]] std::shared_ptr<const void> begin();
    [[nodiscard]] bool isAny() const { return !m_pieces.expired(); }

private:
    std::shared_ptr<const std::function<void()>> m_ended;
    /// What all pieces under way share.
    std::weak_ptr<const void> m_pieces;
};

} // namespace pingwell
