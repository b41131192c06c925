#pragma once

#include "desktop/notification_center.h"

#include <stdexcept>

namespace pingwell {

/// A desktop that keeps what it is given and answers what the test tells it to.
class FakeNotificationCenter final : public NotificationCenter
{
public:
    QCoro::Task<AuthorizationStatus> authorizationStatus() override { co_return status; }
    QCoro::Task<> requestAuthorization() override
    {
        ++requests;
        status = statusAfterRequest;
        if (requestFails)
            throw std::runtime_error("nobody to ask");
        co_return;
    }
    bool canOpenSettings() const override { return hasSettings; }
    void openSettings() override { ++settingsOpened; }
    void add(const NotificationRequest &request) override { added.append(request); }
    void remove(const QStringList &identifiers) override { removed << identifiers; }
    void removeAll() override { ++removedAll; }
    QStringList leftBehind() const override { return {}; }
    void setResponseHandler(ResponseHandler handler) override { responseHandler = std::move(handler); }

    AuthorizationStatus status = AuthorizationStatus::authorized;
    AuthorizationStatus statusAfterRequest = AuthorizationStatus::authorized;
    bool requestFails = false;
    bool hasSettings = true;
    int requests = 0;
    int settingsOpened = 0;
    QList<NotificationRequest> added;
    QStringList removed;
    int removedAll = 0;
    ResponseHandler responseHandler;
};

} // namespace pingwell
