#pragma once

#include "desktop/appearance.h"
#include "store_fixture.h"
#include "ui/engine/engine.h"

#include <QQuickItem>
#include <QQuickView>

#include <chrono>
#include <memory>

namespace pingwell {

/// A desktop's wishes, as the test sets them.
class FixedAppearance final : public Appearance
{
    Q_OBJECT

public:
    [[nodiscard]] bool isDark() const override { return m_dark; }
    [[nodiscard]] bool isMotionReduced() const override { return m_motionReduced; }
    void setDark(bool dark) { set(m_dark, dark); }
    void setMotionReduced(bool reduced) { set(m_motionReduced, reduced); }

private:
    void set(bool &wish, bool value);

    bool m_dark = false;
    bool m_motionReduced = true;
};

/// The instant at which the tests' day ends.
inline constexpr Instant dayEnd{Seconds(1'800'000'000)};

/// An alert of workspace "w1", posted `minutes` before the day's end.
[[nodiscard]] Alert makeAlert(const QString &id, const QString &title, double minutes);
/// The same as an ask with two choices, or answered by text.
[[nodiscard]] Alert makeChoice(const QString &id, const QString &title, double minutes);
[[nodiscard]] Alert makeTextAsk(const QString &id, const QString &title, double minutes);
/// A team workspace "w1" in which the person has `role`, and a personal one, "w2".
[[nodiscard]] SeedData makeSeed(const QList<Alert> &alerts, WorkspaceRole role = WorkspaceRole::member);

/// A screen in a window of its own, with a store without a service. Before anything is looked at or pressed, all that
/// was asked for so far happens.
class Screen
{
public:
    Screen(const QString &component, const SeedData &seed, bool signedIn = true, const QVariantMap &properties = {});
    /// With a store made elsewhere, which outlives it.
    Screen(const QString &component, AppStore &store, const QVariantMap &properties = {});

    [[nodiscard]] AppStore &store() { return *m_store; }
    [[nodiscard]] QQuickView &view()
    {
        settle();
        return *m_view;
    }
    [[nodiscard]] FixedAppearance &appearance() { return m_appearance; }

    /// The visible element with that identifier; null when there is none.
    [[nodiscard]] QQuickItem *find(const QString &identifier) const;
    [[nodiscard]] bool shows(const QString &identifier) const { return find(identifier) != nullptr; }
    [[nodiscard]] bool canUse(const QString &identifier) const;
    /// What a screen reader reads, its value, and the text that a field holds; empty for what is not shown.
    [[nodiscard]] QString name(const QString &identifier) const;
    [[nodiscard]] QString value(const QString &identifier) const;
    [[nodiscard]] QString text(const QString &identifier) const;
    /// What is drawn in the element, part by part: its texts, with "*" before the bold ones, and its round marks as the
    /// word of their colour.
    [[nodiscard]] QStringList drawn(const QString &identifier) const;
    /// The same of the sheet or menu that lies over the screen.
    [[nodiscard]] QStringList drawnOver() const;
    /// Whether a button is filled with a colour rather than outlined, as it is drawn now.
    [[nodiscard]] bool isFilled(const QString &identifier) const;
    /// The first text within the element that begins so; null when there is none.
    [[nodiscard]] QQuickItem *textIn(const QString &identifier, const QString &start) const;
    /// A place of the element in the window; far outside for what is not shown.
    [[nodiscard]] QPointF place(const QString &identifier, const QPointF &within = {}) const;
    /// How many visible elements have an identifier that matches.
    [[nodiscard]] int count(const QString &pattern) const;
    /// Before these, and before keys, so much time goes by that nothing has just moved or changed.
    void click(const QString &identifier);
    void click(const QStringList &identifiers);
    void rightClick(const QString &identifier, const QPointF &within);
    void type(const QString &text);
    void press(QKeyCombination key);
    void press(const QList<QKeyCombination> &keys);
    /// Presses wherever the pointer is, now.
    void pressAtPointer();
    /// Moves the pointer onto the element, or to a place outside of all.
    void point(const QString &identifier);
    void pointAway();
    /// Lets time go by for what has just come under the pointer or the keyboard.
    void pass(std::chrono::milliseconds time)
    {
        settle();
        m_now += time;
    }
    /// The element that has the keyboard's focus; empty when none does.
    [[nodiscard]] QString focused() const;
    /// Lets everything asked for so far happen, drawing included.
    void settle() const;

private:
    [[nodiscard]] QQuickItem *settledContent() const;
    void moveTo(QPoint place);
    void load(const QString &component, const QVariantMap &properties);

    std::unique_ptr<AppStore> m_ownStore;
    AppStore *m_store;
    FixedAppearance m_appearance;
    std::chrono::steady_clock::time_point m_now;
    QPoint m_pointer;
    std::unique_ptr<UiEngine> m_engine;
    std::unique_ptr<QQuickView> m_view;
};

} // namespace pingwell
