// SPDX-License-Identifier: MIT
#include "cli/Saver.h"

#include "cli/ReadFile.h"
#include "media/tags/FileState.h"
#include "media/tags/SaveText.h"
#include "media/tags/SystemCalls.h"

#include <sys/stat.h>

namespace cli {
namespace {

SaveAnswer answerTo(const tags::Outcome<tags::Saved> &outcome)
{
    if (!outcome.ok())
        return {outcome.failure().message.english(), {}};
    return {{}, outcome.value().remark.english()};
}

} // namespace

SaveAnswer Saver::replace(const std::string &path, std::string_view expected, const std::string &text)
{
    return answerTo(tags::saveText(path, expected, text, isFirstIn(path), tags::SystemCalls::real()));
}

SaveAnswer Saver::create(const std::string &path, const std::string &text, bool force)
{
    struct stat status = {};
    if (lstat(path.c_str(), &status) != 0)
        return answerTo(tags::createText(path, text, tags::SystemCalls::real()));
    if (!force)
        return {"there is a file of that name already; --force writes over it.", {}};
    const FileText old = readFile(path, tags::kMaxTextBytes);
    return old.ok() ? replace(path, old.bytes, text) : SaveAnswer{old.refusal, {}};
}

bool Saver::isFirstIn(const std::string &path)
{
    const std::lock_guard lock(m_mutex);
    const std::size_t slash = path.rfind('/');
    return m_swept.insert(slash == std::string::npos ? std::string() : path.substr(0, slash)).second;
}

} // namespace cli
