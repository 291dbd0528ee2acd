// SPDX-License-Identifier: MIT
#include "media/items/MessageText.h"

#include "catalogue/Texts.h"
#include "media/tags/Message.h"

#include <string>
#include <vector>

// The macro has to stand outside of every namespace.
static void registerTexts()
{
    Q_INIT_RESOURCE(tags_localized);
}

namespace media {

namespace {

catalogue::Texts &texts()
{
    static catalogue::Texts all = [] {
        registerTexts();
        return catalogue::Texts(QStringLiteral("tags"));
    }();
    return all;
}

std::string inUsersLanguage(const std::string &english)
{
    return texts().text(QString::fromStdString(english)).toStdString();
}

} // namespace

QString messageText(const tags::Message &message)
{
    std::vector<std::string> parts;
    for (const std::string &part : message.parts)
        parts.push_back(inUsersLanguage(part));
    return QString::fromStdString(tags::filled(inUsersLanguage(message.pattern), parts));
}

} // namespace media
