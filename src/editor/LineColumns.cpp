// SPDX-License-Identifier: MIT
#include "editor/LineColumns.h"

#include "editor/TextSplice.h"
#include "lyrics/RBEditSong.h"
#include "lyrics/RBSongLine.h"
#include "lyrics/RBUtils.h"
#include "lyrics/WordStamps.h"
#include "resources/Localized.h"

#include <algorithm>
#include <limits>

namespace editor {

namespace {

constexpr QStringView kTimePrefix = u"time";
constexpr int kUnlimitedWidth = std::numeric_limits<int>::max();

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

kit::TableColumn timeColumn(std::size_t number)
{
    kit::TableColumn column;
    column.identifier = kTimePrefix.toString() + QString::number(number);
    column.title
        = localized(QStringLiteral("Time point %@")).replace(QLatin1String("%@"), QString::number(number));
    column.minimumWidth = 80;
    column.width = 90;
    column.maximumWidth = 100;
    column.alignment = Qt::AlignCenter;
    return column;
}

kit::TableColumn textColumn()
{
    kit::TableColumn column;
    column.identifier = textColumnIdentifier();
    column.title = localized(QStringLiteral("Text"));
    column.minimumWidth = 180;
    column.width = 180;
    column.maximumWidth = kUnlimitedWidth;
    column.fillsRemainingWidth = true;
    column.usesTextEditor = true;
    return column;
}

} // namespace

std::size_t timeColumnCount(const RBEditSong &song)
{
    std::size_t most = 0;
    for (const RBSongLine &line : song.aryLines()) {
        most = std::max(most, line.aryTimes().size());
    }
    return most;
}

QString textColumnIdentifier()
{
    return QStringLiteral("text");
}

QString numberColumnIdentifier()
{
    return QStringLiteral("number");
}

kit::TableColumn numberColumn()
{
    kit::TableColumn column;
    column.identifier = numberColumnIdentifier();
    column.title = QStringLiteral("#");
    column.minimumWidth = 40;
    column.width = 56;
    column.maximumWidth = 96;
    column.alignment = Qt::AlignCenter;
    column.editable = false;
    return column;
}

std::vector<kit::TableColumn> columnsAfterNumber(std::size_t timeColumns)
{
    std::vector<kit::TableColumn> columns;
    columns.reserve(timeColumns + 1);
    for (std::size_t number = 1; number <= timeColumns; ++number) {
        columns.push_back(timeColumn(number));
    }
    columns.push_back(textColumn());
    return columns;
}

bool isTimeColumn(QStringView identifier)
{
    return identifier.startsWith(kTimePrefix);
}

std::optional<std::size_t> timeIndex(QStringView identifier)
{
    if (!isTimeColumn(identifier)) {
        return std::nullopt;
    }
    bool isNumber = false;
    const qulonglong number = identifier.sliced(kTimePrefix.size()).toULongLong(&isNumber);
    if (!isNumber || number == 0) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(number - 1);
}

std::string_view shownText(const RBSongLine &line)
{
    return line.isProperty() ? line.displayText() : line.lineText();
}

std::string shownWords(const RBSongLine &line)
{
    return lyrics::hasWordStamps(line) ? lyrics::wordsOf(line) : std::string(shownText(line));
}

void updateShownWords(RBSongLine &line, const QString &typed)
{
    const std::string words = shownWords(line);
    if (typed != shownForm(words)) {
        lyrics::updateWithWords(line, splicedText(words, typed));
    }
}

QString chipText(const RBSongLine &line)
{
    const std::string_view key = line.isProperty() ? line.propertyStr() : std::string_view();
    if (key == "ti") {
        return localized(QStringLiteral("Title"));
    }
    if (key == "ar") {
        return localized(QStringLiteral("Artist"));
    }
    if (key == "al") {
        return localized(QStringLiteral("Album"));
    }
    if (key == "by") {
        return localized(QStringLiteral("Edited by"));
    }
    return lyrics::hasWordStamps(line) ? localized(QStringLiteral("Words")) : QString();
}

QString cellText(const RBSongLine &line, int row, QStringView identifier)
{
    if (identifier == numberColumnIdentifier()) {
        return QString::number(row + 1);
    }
    if (identifier == textColumnIdentifier()) {
        return shownForm(shownWords(line));
    }
    const auto index = timeIndex(identifier);
    const auto &times = line.aryTimes();
    return index && *index < times.size() ? fromUtf8(RBUtils::getTimeIntervalPeerStr(times[*index]))
                                          : QString();
}

} // namespace editor
