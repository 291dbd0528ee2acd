// SPDX-License-Identifier: MIT
#include "media/items/TaggedAudioFile.h"

#include "media/tags/AudioTags.h"
#include "media/tags/SaveLyric.h"
#include "shell/contracts/WXEAudioFileMgr.h"

#include <QtCore/QBuffer>
#include <QtCore/QFile>
#include <QtGui/QImageReader>

#include <cmath>
#include <string_view>

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

} // namespace

TaggedAudioFile::OpenResult TaggedAudioFile::open(const QString &path)
{
    const tags::Outcome<tags::AudioTags> outcome = tags::read(nativePath(path));
    if (!outcome.ok())
        return {nullptr, toText(outcome.failure().message)};
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

TaggedAudioFile::SaveResult TaggedAudioFile::save()
{
    refreshIsDirty();
    if (!m_dirty)
        return {true, {}};
    const std::string_view text(m_lyric.constData(), std::size_t(m_lyric.size()));
    const tags::Outcome<tags::Saved> outcome = tags::saveLyric(nativePath(m_path), text, m_state);
    if (!outcome.ok())
        return {false, toText(outcome.failure().message)};
    m_state = outcome.value().state;
    m_savedLyric = m_lyric;
    refreshIsDirty();
    return {true, toText(outcome.value().remark)};
}

} // namespace media
