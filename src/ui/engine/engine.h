#pragma once

#include "desktop/appearance.h"

#include <QQmlEngine>

#include <chrono>
#include <functional>

namespace pingwell {

/// The engine of every window: it knows the screens, draws the symbols, follows the desktop's appearance and refuses
/// all access to the network, so that nothing shown can ever fetch anything. Main thread.
class UiEngine : public QQmlEngine
{
    Q_OBJECT

public:
    using MonotonicTime = std::function<std::chrono::steady_clock::time_point()>;

    /// `appearance` outlives the engine; `time` tells the windows how long ago something came under the pointer.
    explicit UiEngine(Appearance *appearance, MonotonicTime time = std::chrono::steady_clock::now);
    ~UiEngine() override;

    [[nodiscard]] Appearance *appearance() const { return m_appearance; }
    [[nodiscard]] const MonotonicTime &monotonicTime() const { return m_time; }

private:
    Appearance *m_appearance;
    MonotonicTime m_time;
};

} // namespace pingwell
