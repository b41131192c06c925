#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>

namespace pingwell {

// What a later start may tell the running program. Nothing of it is trusted, where it leaves and where it arrives; it
// carries secrets and is never written anywhere.

/// The texts of those URLs that the program opens: of the scheme "pingwell", well-formed, at most 4 KiB long.
[[nodiscard]] QStringList acceptableTexts(const QList<QUrl> &urls);

/// The URLs in those texts that the program opens. Read leniently: some desktops decode a part of a URL before they
/// hand it over.
[[nodiscard]] QList<QUrl> acceptableURLs(const QStringList &texts);

/// What the desktop gave this process so that a window may come to the front, in the words of the Desktop Entry
/// Specification (D-Bus Activation, platform data). To be read before any graphical application object, which may take
/// it out of the environment.
[[nodiscard]] QVariantMap platformDataOfThisStart();

/// The token in platform data that lets a window come to the front: Wayland's, or X11's older one; empty without one.
[[nodiscard]] QByteArray activationTokenOf(const QVariantMap &platformData);

} // namespace pingwell
