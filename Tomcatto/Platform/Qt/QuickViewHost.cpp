#include "Platform/Qt/QuickViewHost.h"

#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtQml/QQmlError>
#include <QtQuick/QQuickWindow>

namespace tomcatto {

namespace {

/// The path below which modules that are built in are found.
const QString modulesAddress = QStringLiteral("qrc:/qt-project.org/imports/");

class QuickHostedView final : public HostedView
{
public:
    explicit QuickHostedView(QQuickWindow &window)
        : m_window(&window)
    {
    }
    QuickHostedView(const QuickHostedView &) = delete;
    QuickHostedView &operator=(const QuickHostedView &) = delete;
    ~QuickHostedView() override
    {
        if (!m_window)
            return;
        m_window->hide();
        delete m_window.data();
    }

    [[nodiscard]] QWindow &window() override { return *m_window; }

private:
    QPointer<QQuickWindow> m_window;
};

}

QuickViewHost::QuickViewHost(QObject &appearance, QObject &texts, std::function<void()> released,
                             std::chrono::milliseconds patience)
    : m_released(std::move(released))
    , m_settings(nullptr)
    , m_texts(texts)
    , m_mirror(appearance, m_settings, {"dark", "reducedMotion", "highContrast", "textScale"})
{
    m_release.setSingleShot(true);
    m_release.setInterval(patience);
    connect(&m_release, &QTimer::timeout, this, &QuickViewHost::releaseEngine);
}

QuickViewHost::~QuickViewHost()
{
    const auto windows = std::exchange(m_windows, {});
    for (QQuickWindow *window : windows) {
        window->disconnect(this);
        delete window;
    }
}

std::unique_ptr<HostedView> QuickViewHost::create(const ViewDescription &description)
{
    m_release.stop();
    if (!m_engine)
        makeEngine();
    std::unique_ptr<QQuickWindow> window = makeWindow(description);
    m_problem =
        window ? QString() : QStringLiteral("the view %1 is faulty; the log says more").arg(description.component);
    if (!window) {
        if (m_windows.isEmpty())
            m_release.start();
        return nullptr;
    }
    m_windows.append(window.get());
    connect(window.get(), &QObject::destroyed, this, [this, gone = window.get()] {
        m_windows.removeOne(gone);
        if (m_windows.isEmpty())
            m_release.start();
    });
    return std::make_unique<QuickHostedView>(*window.release());
}

void QuickViewHost::makeEngine()
{
    m_engine = std::make_unique<QQmlEngine>();
    m_engine->setOutputWarningsToStandardError(false);
    connect(m_engine.get(), &QQmlEngine::warnings, this, [this](const QList<QQmlError> &warnings) {
        for (const QQmlError &warning : warnings)
            m_logger.error(warning.toString());
    });
    m_settings.install(*m_engine);
    Texts::install(*m_engine, m_texts);
}

std::unique_ptr<QQuickWindow> QuickViewHost::makeWindow(const ViewDescription &description)
{
    QString folder = description.module;
    folder.replace(u'.', u'/');
    QQmlComponent component(m_engine.get(),
                            QUrl(modulesAddress + folder + u'/' + description.component + QStringLiteral(".qml")));
    std::unique_ptr<QObject> root(component.isReady() ? component.createWithInitialProperties(description.properties)
                                                      : nullptr);
    // A root without a property that it requires is made all the same, with an error.
    if (root == nullptr || component.isError()) {
        m_logger.error(QStringLiteral("%1.%2 cannot be shown: %3")
                           .arg(description.module, description.component, component.errorString().trimmed()));
        return nullptr;
    }
    auto *window = qobject_cast<QQuickWindow *>(root.get());
    if (window == nullptr) {
        m_logger.error(QStringLiteral("%1.%2 is no window").arg(description.module, description.component));
        return nullptr;
    }
    static_cast<void>(root.release());
    QQmlEngine::setObjectOwnership(window, QQmlEngine::CppOwnership);
    window->setPersistentGraphics(false);
    window->setPersistentSceneGraph(false);
    return std::unique_ptr<QQuickWindow>(window);
}

void QuickViewHost::dropPictures()
{
    // Drawing without a graphics card keeps the pictures of a window that is gone, a screen of them after a break,
    // until the next window is drawn.
    if (QQuickWindow::sceneGraphBackend() != QStringLiteral("software"))
        return;
    QQuickWindow next;
    next.resize(1, 1);
    next.grabWindow();
}

void QuickViewHost::releaseEngine()
{
    dropPictures();
    m_engine.reset();
    m_logger.debug(QStringLiteral("no views are left, their engine is let go"));
    m_released();
}

}
