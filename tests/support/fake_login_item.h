#pragma once

#include "desktop/login_item.h"

namespace pingwell {

/// A desktop that does as it is told, or says why not.
class FakeLoginItem final : public LoginItem
{
public:
    std::optional<QString> registerProgram() override
    {
        ++registrations;
        if (!problem)
            current = LoginItemStatus::enabled;
        return problem;
    }
    std::optional<QString> unregisterProgram() override
    {
        if (!problem)
            current = LoginItemStatus::notRegistered;
        return problem;
    }
    LoginItemStatus status() const override { return current; }
    void openSettings() override { ++settingsOpened; }
    bool isProgramInstalled() const override { return installed; }

    LoginItemStatus current = LoginItemStatus::notRegistered;
    std::optional<QString> problem;
    bool installed = true;
    int registrations = 0;
    int settingsOpened = 0;
};

} // namespace pingwell
