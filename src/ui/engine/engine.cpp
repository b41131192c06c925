#include "ui/engine/engine.h"

#include "model/check.h"
#include "ui/engine/no_network.h"
#include "ui/engine/qml_types.h"
#include "ui/engine/symbol_image.h"

// Made by the build from the module's types. Naming it is what brings the module out of the static library.
extern void qml_register_types_Pingwell();

// Qt Quick's own start, which shows its items to assistive technology. Its plugin would call it, but this Qt does not
// load the plugin of a module whose types are linked in.
extern void QQuick_initializeModule();

namespace pingwell {

namespace {

NoNetwork &noNetwork()
{
    static NoNetwork factory;
    return factory;
}

} // namespace

UiEngine::UiEngine(Appearance *appearance, MonotonicTime time)
    : m_appearance(appearance)
    , m_time(std::move(time))
{
    static const bool registered = (QQuick_initializeModule(), qml_register_types_Pingwell(), true);
    Q_UNUSED(registered)
    addImportPath(QStringLiteral("qrc:/qt/qml"));
    setNetworkAccessManagerFactory(&noNetwork());
    addImageProvider(QStringLiteral("symbol"), new SymbolProvider);
}

UiEngine::~UiEngine() = default;

Appearance *AppearanceForQml::create(QQmlEngine *engine, QJSEngine *)
{
    auto *const ours = qobject_cast<UiEngine *>(engine);
    check(ours, "a screen was loaded by an engine of another kind");
    QJSEngine::setObjectOwnership(ours->appearance(), QJSEngine::CppOwnership);
    return ours->appearance();
}

} // namespace pingwell
