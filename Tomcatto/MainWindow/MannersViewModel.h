#pragma once

#include "Localization/LocalizedStrings.h"
#include "Manners/MannersSettings.h"
#include "Platform/Ports/Surroundings.h"

#include <QtCore/QVariantList>

namespace tomcatto {

/// The rows of good manners: what the application heeds, and whether anything here tells of it, which is asked only
/// while the rows are shown. Main thread only.
class MannersViewModel final : public QObject
{
    Q_OBJECT
    /// Rows: id (the key of its switch), title, help, isOn, isTold (whether anything here tells of it), choices (texts;
    /// none while it is off), choice (the index of the chosen one), choiceTitle.
    Q_PROPERTY(QVariantList rows READ rows NOTIFY changed FINAL)

public:
    /// All outlive the model.
    MannersViewModel(MannersSettings &settings, const Surroundings &surroundings, const LocalizedStrings &strings,
                     QObject *parent = nullptr);

    [[nodiscard]] QVariantList rows() const;

    /// A page that shows the rows came or went; there may be two for a while.
    Q_INVOKABLE void appear();
    Q_INVOKABLE void disappear();
    /// Turns a row on or off. What nothing tells of can only be turned off.
    Q_INVOKABLE void setOn(const QString &id, bool isOn);
    /// Chooses one of a row's choices; an index outside changes nothing.
    Q_INVOKABLE void choose(const QString &id, int index);

Q_SIGNALS:
    void changed();

private:
    enum class Source { call, fullScreen, lock, idle };
    struct Row;
    static const std::array<Row, 5> kinds;

    [[nodiscard]] static const Row *kind(const QString &id);
    [[nodiscard]] QVariantMap row(const Row &kind) const;
    [[nodiscard]] bool tells(Source source) const
    {
        return m_facts.at(static_cast<std::size_t>(source)) != Fact::untold;
    }
    [[nodiscard]] bool isTold(MannersSettings::Key key) const;
    [[nodiscard]] QString helpName(MannersSettings::Key key) const;
    void take(Source source, Fact fact);

    MannersSettings &m_settings;
    const Surroundings m_surroundings;
    const LocalizedStrings &m_strings;
    std::array<Fact, 4> m_facts{};
    std::vector<Cancellable> m_watches;
    int m_pages = 0;
};

}
