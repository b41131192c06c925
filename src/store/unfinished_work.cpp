#include "store/unfinished_work.h"

namespace pingwell {

UnfinishedWork::UnfinishedWork(std::function<void()> ended)
    : m_ended(std::make_shared<const std::function<void()>>(std::move(ended)))
{
}

std::shared_ptr<const void> UnfinishedWork::begin()
{
    if (std::shared_ptr<const void> pieces = m_pieces.lock())
        return pieces;
    const auto end = [stillThere = std::weak_ptr(m_ended)](const void *) {
        if (const auto ended = stillThere.lock())
            (*ended)();
    };
    const std::shared_ptr<const void> pieces(static_cast<const void *>(this), end);
    m_pieces = pieces;
    return pieces;
}

} // namespace pingwell
