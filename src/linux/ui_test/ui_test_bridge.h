#pragma once

#include <QObject>

#include <functional>

namespace pingwell {

/// Lets an automated test read what the windows show. Owns the session-bus name com.pingwell.mac.uitest and serves, at
/// /com/pingwell/uitest, the interface com.pingwell.UITest1 with the one method Snapshot() → s. Main thread.
class UITestBridge final : public QObject
{
    Q_OBJECT

public:
    /// `snapshot` returns the reply to each call, on the main thread.
    explicit UITestBridge(std::function<QString()> snapshot, QObject *parent = nullptr);
    ~UITestBridge() override;

    /// Starts to serve; false where there is no session bus or the name is taken.
    [[nodiscard]] bool serve();

private:
    bool m_serving = false;
};

} // namespace pingwell
