// SPDX-License-Identifier: MIT
#include "media/items/TaggedAudioFile.h"

#include "media/items/MessageText.h"
#include "media/items/SaveTask.h"
#include "media/tags/AudioTags.h"
#include "media/tags/SaveLyric.h"
#include "shell/contracts/WXEAudioFileMgr.h"

#include <QtCore/QBuffer>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtGui/QImageReader>

#include <cmath>
#include <string_view>
#include <utility>

namespace media {

namespace {

/// A cover is shown small; what is larger is decoded at this size, and what claims to be far
/// larger is not decoded at all.
constexpr int kMaxCoverSide = 1024;
constexpr qint64 kMaxCoverPixels = 64LL * 1024 * 1024;

QString toText(const std::string &utf8)
{
    return utf8.empty() ? QString() : QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

QByteArray toBytes(const std::string &bytes)
{
    return bytes.empty() ? QByteArray() : QByteArray(bytes.data(), qsizetype(bytes.size()));
}

std::string nativePath(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

/// Drawings and documents are no covers, and their readers are not made for strangers' data.
bool isPictureFormat(const QByteArray &format)
{
    return format == "jpeg" || format == "png" || format == "gif" || format == "bmp" || format == "webp";
}

QImage decodeCover(const QByteArray &data)
{
    if (data.isEmpty())
        return {};
    QBuffer buffer;
    buffer.setData(data);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (!isPictureFormat(reader.format()) || !size.isValid()
        || qint64(size.width()) * size.height() > kMaxCoverPixels)
        return {};
    if (size.width() > kMaxCoverSide || size.height() > kMaxCoverSide)
        reader.setScaledSize(
            size.scaled(kMaxCoverSide, kMaxCoverSide, Qt::KeepAspectRatio).expandedTo({1, 1}));
    return reader.read();
}

TaggedAudioFile::SaveResult refused(const tags::Failure &failure)
{
    return {false, messageText(failure.message), failure.reason == tags::Reason::Cancelled};
}

} // namespace

TaggedAudioFile::OpenResult TaggedAudioFile::open(const QString &path)
{
    const tags::Outcome<tags::AudioTags> outcome = tags::read(nativePath(path));
    if (!outcome.ok())
        return {nullptr, messageText(outcome.failure().message)};
    return {std::shared_ptr<TaggedAudioFile>(new TaggedAudioFile(path, outcome.value())), {}};
}

void TaggedAudioFile::registerAsFactory()
{
    WXEAudioFileMgr::setFactory(
        [](const QString &path, bool) -> std::shared_ptr<WXEAudioFile> { return open(path).item; });
}

TaggedAudioFile::TaggedAudioFile(const QString &path, const tags::AudioTags &tags)
    : m_path(path), m_title(toText(tags.title)), m_artist(toText(tags.artist)), m_album(toText(tags.album)),
      m_coverData(toBytes(tags.cover)), m_duration(tags.duration),
      m_lyric(toBytes(tags.lyric.value_or(std::string()))), m_savedLyric(m_lyric), m_state(tags.state)
{ }

TaggedAudioFile::~TaggedAudioFile() = default;

QImage TaggedAudioFile::frontCoverImg() const
{
    if (!m_cover)
        m_cover = decodeCover(m_coverData);
    return *m_cover;
}

void TaggedAudioFile::setLyric(const QByteArray &lyric)
{
    m_lyric = lyric.isEmpty() ? QByteArray() : lyric;
    refreshIsDirty();
}

void TaggedAudioFile::refreshIsDirty()
{
    m_dirty = m_lyric != m_savedLyric;
}

void TaggedAudioFile::setKnownDuration(double seconds)
{
    if (std::isfinite(seconds) && seconds > 0)
        m_duration = seconds;
}

TaggedAudioFile::SaveResult TaggedAudioFile::take(
    const tags::Outcome<tags::Saved> &outcome, const QByteArray &lyric)
{
    if (!outcome.ok())
        return refused(outcome.failure());
    m_state = outcome.value().state;
    m_savedLyric = lyric;
    refreshIsDirty();
    return {true, messageText(outcome.value().remark)};
}

TaggedAudioFile::SaveResult TaggedAudioFile::save()
{
    if (const auto running = std::exchange(m_saving, nullptr))
        static_cast<void>(take(running->wait(), running->lyric()));
    refreshIsDirty();
    if (!m_dirty)
        return {true, {}};
    const std::string_view text(m_lyric.constData(), std::size_t(m_lyric.size()));
    return take(tags::saveLyric(nativePath(m_path), text, m_state), m_lyric);
}

/// The end of a save at work. When save() waited for it, what became of it is known already.
TaggedAudioFile::SaveResult TaggedAudioFile::endSave(
    const SaveTask *task, const tags::Outcome<tags::Saved> &outcome)
{
    if (task != m_saving.get())
        return outcome.ok() ? SaveResult{true, messageText(outcome.value().remark)}
                            : refused(outcome.failure());
    const auto ended = std::exchange(m_saving, nullptr);
    return take(outcome, ended->lyric());
}

bool TaggedAudioFile::beginSave(SaveObserver observer)
{
    if (m_saving)
        return false;
    refreshIsDirty();
    const std::weak_ptr<TaggedAudioFile *> self = m_self;
    if (!m_dirty) {
        const auto finish = [self, finished = std::move(observer.finished)] {
            if (finished && self.lock())
                finished({true, {}});
        };
        return QMetaObject::invokeMethod(QCoreApplication::instance(), finish, Qt::QueuedConnection);
    }
    m_saving = std::make_shared<SaveTask>(nativePath(m_path), m_lyric, m_state);
    const auto progressed = [self, callback = std::move(observer.progressed)](double done) {
        if (callback && self.lock())
            callback(done);
    };
    const auto finished = [self, task = m_saving.get(), callback = std::move(observer.finished)](
                              const tags::Outcome<tags::Saved> &outcome) {
        const auto item = self.lock();
        if (!item)
            return;
        const SaveResult result = (*item)->endSave(task, outcome);
        if (callback)
            callback(result);
    };
    m_saving->start(progressed, finished);
    return true;
}

void TaggedAudioFile::cancelSave()
{
    if (m_saving)
        m_saving->cancel();
}

} // namespace media
