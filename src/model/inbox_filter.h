#pragma once

#include <QString>

namespace pingwell {

/// What the inbox shows: every alert, only asks, or the alerts of one topic by its name.
class InboxFilter
{
public:
    enum class Kind { all, asks, topic };

    static InboxFilter all() { return {}; }
    static InboxFilter asks() { return InboxFilter(Kind::asks, {}); }
    static InboxFilter topic(const QString &name) { return InboxFilter(Kind::topic, name); }

    InboxFilter() = default;

    [[nodiscard]] Kind kind() const { return m_kind; }
    /// The topic's name; empty for the other kinds.
    [[nodiscard]] const QString &topicName() const { return m_topicName; }

    friend bool operator==(const InboxFilter &, const InboxFilter &) = default;

private:
    InboxFilter(Kind kind, const QString &topicName)
        : m_kind(kind)
        , m_topicName(topicName)
    {
    }

    Kind m_kind = Kind::all;
    QString m_topicName;
};

} // namespace pingwell
