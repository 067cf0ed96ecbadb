#include "Platform/Views/ViewDesk.h"

#include "Platform/Posix/CompanionProgram.h"

namespace tomcatto {

namespace {

constexpr qsizetype mostBytes = 1 << 18;

}

ViewDesk::ViewDesk(ViewDeskParts parts)
    : m_parts(std::move(parts))
    , m_replicas([this](ViewMessageKind kind, const QVariantList &arguments) { send(kind, arguments); })
    , m_presses(m_clicks.onPressed([this](QPoint place) { send(ViewMessageKind::pressed, {place}); }))
{
    m_parts.connection.onChange([this] { read(); });
}

ViewDesk::~ViewDesk() = default;

void ViewDesk::send(ViewMessageKind kind, const QVariantList &arguments)
{
    m_parts.connection.write(packed({kind, arguments}));
}

void ViewDesk::read()
{
    const LocalInput input = m_parts.connection.read(mostBytes);
    m_reader.add(input.bytes);
    while (const auto message = m_reader.next())
        obey(*message);
    if (input.peer != LocalPeer::open)
        m_parts.quit();
}

void ViewDesk::obey(const ViewMessage &message)
{
    const QVariantList &arguments = message.arguments;
    const int number = arguments.value(0).toInt();
    if (m_replicas.take(message)) {
        if (number == m_texts && message.kind == ViewMessageKind::changed)
            m_parts.speak(m_replicas.object(m_texts)->property("language").toString());
        return;
    }
    switch (message.kind) {
    case ViewMessageKind::surroundings:
        return setSurroundings(number, arguments.value(1).toInt());
    case ViewMessageKind::create:
        return create(arguments);
    case ViewMessageKind::destroy:
        m_views.erase(number);
        return send(ViewMessageKind::destroyed, {number});
    case ViewMessageKind::watchKeys:
        return watchKeys(number, arguments.value(1).toInt() == 0
                                     ? std::nullopt
                                     : std::optional(static_cast<Qt::Key>(arguments.value(1).toInt())));
    case ViewMessageKind::forgetKeys:
        m_watched.erase(number);
        return;
    case ViewMessageKind::taskbar:
        return m_parts.taskbar.setPolicy(arguments.value(0).toBool() ? ActivationPolicyKind::regular
                                                                     : ActivationPolicyKind::accessory);
    default:
        if (const auto view = m_views.find(number); view != m_views.end())
            obeyView(message.kind, *view->second, arguments.value(1));
    }
}

void ViewDesk::obeyView(ViewMessageKind kind, HostedView &view, const QVariant &value) const
{
    switch (kind) {
    case ViewMessageKind::present:
        // The toolkit takes it from there when it asks for the keyboard.
        if (!value.toByteArray().isEmpty())
            qputenv(activationTokenVariable, value.toByteArray());
        return view.present();
    case ViewMessageKind::hide:
        return view.hide();
    case ViewMessageKind::place:
        return view.place(value.toRect());
    case ViewMessageKind::cover:
        return view.cover(value.toRect());
    case ViewMessageKind::makeKey:
        return view.makeKey();
    case ViewMessageKind::leave:
        return view.leave();
    default:
        return;
    }
}

void ViewDesk::setSurroundings(int looks, int texts)
{
    m_texts = texts;
    QObject *const appearance = m_replicas.object(looks);
    const QObject *const strings = m_replicas.object(texts);
    if (!appearance || !strings)
        return;
    m_parts.speak(strings->property("language").toString());
    m_host = m_parts.makeHost(*appearance);
}

void ViewDesk::create(const QVariantList &description)
{
    const int number = description.value(0).toInt();
    const ViewDescription wanted{description.value(2).toString(), description.value(3).toString(),
                                 m_replicas.resolved(description.value(4)).toMap(),
                                 static_cast<ViewDescription::Kind>(description.value(1).toInt())};
    auto view = m_host ? m_host->create(wanted) : nullptr;
    QString problem;
    if (view) {
        view->onEvent([this, number](ViewEvent event) { tell(number, event); });
        m_views[number] = std::move(view);
    } else {
        problem = m_host ? m_host->problem() : QStringLiteral("their process does not know its surroundings");
    }
    send(ViewMessageKind::created, {number, problem});
}

void ViewDesk::tell(int number, ViewEvent event)
{
    const HostedView &view = *m_views.at(number);
    send(ViewMessageKind::told, {number, static_cast<int>(event), view.isActive(), view.frame(), view.serverWindow()});
}

void ViewDesk::watchKeys(int number, std::optional<Qt::Key> key)
{
    m_watched[number] = m_keys.onKeyDown(key, [this, number](const KeyPress &press) {
        send(ViewMessageKind::keyDown,
             {number, static_cast<int>(press.key), press.modifiers.toInt(), press.keyCode ? int{*press.keyCode} : -1,
              press.heldModifiers.toInt(), press.isRepeat});
    });
}

}
