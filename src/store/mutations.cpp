#include "store/mutations.h"

#include "async/launch.h"

#include <utility>

namespace pingwell {

/// Counts a mutation as under way for as long as it lives.
class Mutations::InProgress
{
public:
    InProgress(QPointer<Mutations> mutations, bool holdsMerge)
        : m_mutations(std::move(mutations))
        , m_holdsMerge(holdsMerge)
    {
        if (m_holdsMerge)
            m_mutations->m_count.begin();
    }
    Q_DISABLE_COPY_MOVE(InProgress)

    ~InProgress()
    {
        if (!m_mutations)
            return;
        if (m_holdsMerge)
            m_mutations->m_count.end();
        else
            m_mutations->m_count.endBeside();
    }

private:
    QPointer<Mutations> m_mutations;
    bool m_holdsMerge;
};

Mutations::Mutations(UnfinishedWork &work, Surroundings surroundings)
    : m_work(work)
    , m_surroundings(std::move(surroundings))
{
}

void Mutations::start(Mutation mutation)
{
    if (canTell())
        launch("mutation", run(this, m_surroundings.client(), std::make_shared<const Mutation>(std::move(mutation)),
                               m_work.begin()));
}

QCoro::Task<> Mutations::run(QPointer<Mutations> self, APIClientPtr client, std::shared_ptr<const Mutation> mutation,
                             [[maybe_unused]] std::shared_ptr<const void> work)
{
    std::optional<InProgress> inProgress(std::in_place, self, mutation->holdsMerge);
    const Outcome<Consent> outcome = co_await mutation->operation(client);
    if (!self)
        co_return;
    const Ending ending = self->conclude(client, *mutation, outcome);
    inProgress.reset();
    emit self->ended(ending);
}

Mutations::Ending Mutations::conclude(const APIClientPtr &client, const Mutation &mutation,
                                      const Outcome<Consent> &outcome)
{
    if (outcome.error())
        mutation.failed(client, *outcome.error());
    if (!isCurrent(client))
        return Ending::ofAnEarlierSession;
    if (outcome.error())
        takeBack(client, mutation, *outcome.error());
    else
        accept(*outcome.value());
    // What waits for the end is dropped with the session: it must not be sent with another session's token.
    if (!isCurrent(client))
        return Ending::ofAnEarlierSession;
    mutation.ended(!outcome.error());
    return outcome.error() ? Ending::refused : Ending::accepted;
}

void Mutations::accept(const Consent &consent)
{
    consent.takeIn();
    if (consent.sentence)
        m_surroundings.say(*consent.sentence);
}

void Mutations::takeBack(const APIClientPtr &client, const Mutation &mutation, const APIError &failure)
{
    mutation.rollback();
    m_surroundings.tellFailure(failure);
    if (isCurrent(client))
        mutation.refused(failure.message());
}

} // namespace pingwell
