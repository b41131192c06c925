#pragma once

#include "desktop/appearance.h"
#include "store/app_store.h"

#include <QQuickView>
#include <QString>

#include <functional>

namespace pingwell {

class PlainAppearance final : public Appearance
{
public:
    [[nodiscard]] bool isDark() const override { return false; }
    [[nodiscard]] bool isMotionReduced() const override { return true; }
};

/// What a turn of the event loop took at most while `done` was awaited, in milliseconds.
double longestTurn(const std::function<bool()> &done);

/// Lets the next frame be drawn.
void drawFrame(QQuickView &view);

/// Fills the window with one of the program's screens.
void showComponent(QQuickView &view, AppStore &store, const QString &component);

} // namespace pingwell
