#include "MainWindow/MannersViewModel.h"

#include "Localization/DurationText.h"

#include <algorithm>

namespace tomcatto {

namespace {

using Key = MannersSettings::Key;

/// Any will do: whether it is told at all is the same for all of them.
constexpr std::chrono::minutes rest{3};

}

struct MannersViewModel::Row
{
    Key key;
    /// In the keys of its texts.
    const char *name;
    std::optional<Key> choice;
    /// What is chosen from, as it stands in the row.
    std::vector<qint64> values;
};

const std::array<MannersViewModel::Row, 5> MannersViewModel::kinds{
    Row{Key::waitsDuringCalls, "calls", {}, {}},
    {Key::waitsInFullScreen, "full_screen", {}, {}},
    {Key::pausesWhenAway, "away", Key::awayAfterMinutes, {3, 5, 10, 0}},
    {Key::finishesSentence, "sentence", {}, {}},
    {Key::saysWordBefore, "word", Key::wordBeforeSeconds, {30, 60}},
};

MannersViewModel::MannersViewModel(MannersSettings &settings, const Surroundings &surroundings,
                                   const LocalizedStrings &strings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_surroundings(surroundings)
    , m_strings(strings)
{
    connect(&settings, &MannersSettings::changed, this, &MannersViewModel::changed);
    connect(&strings, &LocalizedStrings::changed, this, &MannersViewModel::changed);
}

void MannersViewModel::appear()
{
    if (++m_pages > 1)
        return;
    const auto follow = [this](Source source) { return [this, source](Fact fact) { take(source, fact); }; };
    m_watches.push_back(m_surroundings.call.watch(follow(Source::call)));
    m_watches.push_back(m_surroundings.fullScreen.watch(follow(Source::fullScreen)));
    m_watches.push_back(m_surroundings.lock.watch(follow(Source::lock)));
    m_watches.push_back(m_surroundings.idle.watch(rest, follow(Source::idle)));
}

void MannersViewModel::disappear()
{
    if (--m_pages == 0)
        m_watches.clear();
}

void MannersViewModel::take(Source source, Fact fact)
{
    const bool told = tells(source);
    m_facts.at(static_cast<std::size_t>(source)) = fact;
    if (tells(source) != told)
        Q_EMIT changed();
}

QVariantList MannersViewModel::rows() const
{
    QVariantList list;
    for (const Row &each : kinds)
        list.append(row(each));
    return list;
}

QVariantMap MannersViewModel::row(const Row &kind) const
{
    const bool isOn = m_settings.isOn(kind.key);
    const QString textKey = QStringLiteral("window.general.manners.%1.%2");
    const auto text = [&](const QString &part) {
        return m_strings.text(textKey.arg(QString::fromLatin1(kind.name), part));
    };
    QVariantMap row{{QStringLiteral("id"), MannersSettings::keyText(kind.key)},
                    {QStringLiteral("title"), text(QStringLiteral("title"))},
                    {QStringLiteral("help"), text(helpName(kind.key))},
                    {QStringLiteral("isOn"), isOn},
                    {QStringLiteral("isTold"), isTold(kind.key)}};
    if (!isOn || !kind.choice)
        return row;
    QStringList choices;
    for (const qint64 value : kind.values) {
        choices.append(kind.choice == Key::wordBeforeSeconds
                           ? m_strings.plural(QStringLiteral("duration.spoken.seconds"), value)
                       : value == 0 ? text(QStringLiteral("lock"))
                                    : durationText(m_strings, 60 * value));
    }
    row.insert(QStringLiteral("choices"), choices);
    row.insert(QStringLiteral("choiceTitle"), text(QStringLiteral("choice")));
    const auto chosen = std::ranges::find(kind.values, m_settings.value(*kind.choice));
    row.insert(QStringLiteral("choice"), static_cast<int>(chosen - kind.values.begin()));
    return row;
}

bool MannersViewModel::isTold(Key key) const
{
    switch (key) {
    case Key::waitsDuringCalls:
        return tells(Source::call);
    case Key::waitsInFullScreen:
        return tells(Source::fullScreen);
    case Key::pausesWhenAway:
        return tells(Source::idle) || tells(Source::lock);
    case Key::finishesSentence:
        return tells(Source::idle);
    case Key::awayAfterMinutes:
    case Key::saysWordBefore:
    case Key::wordBeforeSeconds:
        break;
    }
    return true;
}

QString MannersViewModel::helpName(Key key) const
{
    if (!isTold(key))
        return QStringLiteral("untold");
    if (key == Key::pausesWhenAway && !tells(Source::lock))
        return QStringLiteral("idle_only");
    if (key == Key::pausesWhenAway && !tells(Source::idle))
        return QStringLiteral("lock_only");
    return QStringLiteral("help");
}

const MannersViewModel::Row *MannersViewModel::kind(const QString &id)
{
    const auto found = std::ranges::find(kinds, id, [](const Row &each) { return MannersSettings::keyText(each.key); });
    return found == kinds.end() ? nullptr : &*found;
}

void MannersViewModel::setOn(const QString &id, bool isOn)
{
    const Row *const row = kind(id);
    if (row != nullptr && (!isOn || isTold(row->key)))
        m_settings.setValue(row->key, isOn ? 1 : 0);
}

void MannersViewModel::choose(const QString &id, int index)
{
    const Row *const row = kind(id);
    if (row != nullptr && row->choice && index >= 0 && index < static_cast<int>(row->values.size()))
        m_settings.setValue(*row->choice, row->values[static_cast<std::size_t>(index)]);
}

}
