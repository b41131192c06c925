#pragma once

#include "ui/appearance.h"

#include <QQmlEngine>

namespace pingwell {

/// The engine of every window: it knows the screens, draws the symbols, follows the desktop's appearance and refuses
/// all access to the network, so that nothing shown can ever fetch anything. Main thread.
class UiEngine : public QQmlEngine
{
    Q_OBJECT

public:
    /// `appearance` outlives the engine.
    explicit UiEngine(Appearance *appearance, QObject *parent = nullptr);
    ~UiEngine() override;

    [[nodiscard]] Appearance *appearance() const { return m_appearance; }

private:
    Appearance *m_appearance;
};

} // namespace pingwell
