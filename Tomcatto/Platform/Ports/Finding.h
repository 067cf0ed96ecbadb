#pragma once

#include "Foundation/EnumTexts.h"

#include <QtCore/QByteArray>
#include <QtCore/QStringList>
#include <vector>

namespace tomcatto {

/// What a look at one part of the program's surroundings has found, in words for people, in English.
struct Finding
{
    enum class Mark {
        there,
        /// The program does without, but something does not happen.
        lacking,
        /// The program needs it.
        failing,
    };

    /// What was looked at, in a word or two.
    QString part;
    Mark mark = Mark::there;
    QString found;
    /// What to do about it; empty where nothing lacks.
    QString advice;

    bool operator==(const Finding &) const = default;
};

using Findings = std::vector<Finding>;

/// The texts of the marks, in their order, for other programs.
inline constexpr std::array findingMarks{"there", "lacking", "failing"};

/// How one process tells another what it has found: a line of four texts with tabs between.
[[nodiscard]] inline QByteArray findingLine(const Finding &finding)
{
    return QStringList{finding.part, textOf(findingMarks, finding.mark), finding.found.simplified(),
                       finding.advice.simplified()}
               .join(QLatin1Char('\t'))
               .toUtf8() +
           '\n';
}

/// Reads such a line, without its end; `nullopt` for any other line.
[[nodiscard]] inline std::optional<Finding> findingFromLine(const QByteArray &line)
{
    const QStringList texts = QString::fromUtf8(line).split(QLatin1Char('\t'));
    const auto mark =
        texts.size() == 4 ? caseOf<Finding::Mark>(findingMarks, texts[1]) : std::optional<Finding::Mark>();
    return mark ? std::optional(Finding{texts[0], *mark, texts[2], texts[3]}) : std::nullopt;
}

}
