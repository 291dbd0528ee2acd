// SPDX-License-Identifier: MIT
#include "editor/ProblemTexts.h"

#include "lyrics/RBUtils.h"
#include "resources/Localized.h"

#include <QtCore/QLocale>

namespace editor {

namespace {

constexpr std::int64_t kWholeSecondsFrom = 10'000;

// As many digits as are needed and no more: 3.2, 0.25, 14.
QString secondsText(std::int64_t millis)
{
    if (millis >= kWholeSecondsFrom) {
        return QLocale().toString(static_cast<qlonglong>(millis / 1000));
    }
    const int digits = millis % 100 == 0 ? 1 : (millis % 10 == 0 || millis >= 100) ? 2 : 3;
    return QLocale().toString(static_cast<double>(millis) / 1000.0, 'f', digits);
}

QString timeText(std::int64_t millis)
{
    return QString::fromStdString(RBUtils::getTimeIntervalMMSSMSStr(millis));
}

} // namespace

QString problemText(const LineProblem &problem)
{
    const QString seconds = secondsText(problem.millis);
    switch (problem.kind) {
    case LineProblem::Kind::EarlierThanAbove:
        return localized(QStringLiteral("%1 s earlier than the line above")).arg(seconds);
    case LineProblem::Kind::LaterThanBelow:
        return localized(QStringLiteral("%1 s later than the line below")).arg(seconds);
    case LineProblem::Kind::SameAsAbove:
        return localized(QStringLiteral("The same text at the same time as the line above"));
    case LineProblem::Kind::TwiceOnLine:
        return localized(QStringLiteral("This time stands on the line twice"));
    case LineProblem::Kind::ManyAtOnce:
        return localized(QStringLiteral("More than three lines at the same time"));
    case LineProblem::Kind::GapAfter:
        return localized(QStringLiteral("Nothing comes for %1 s after this line")).arg(seconds);
    case LineProblem::Kind::PastEnd:
        return localized(QStringLiteral("Past the end of the song (%1)")).arg(timeText(problem.millis));
    case LineProblem::Kind::EmptyAfterEmpty:
        return localized(QStringLiteral("Empty, like the line above"));
    case LineProblem::Kind::EmptyAtOnce:
        return localized(QStringLiteral("Empty %1 s after the line above")).arg(seconds);
    case LineProblem::Kind::EmptyBeforeNext:
        return localized(QStringLiteral("Empty only %1 s before the next line")).arg(seconds);
    }
    return {};
}

} // namespace editor
