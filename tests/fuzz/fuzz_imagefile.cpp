// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The image file of a watermark. The first byte chooses the file's suffix, the second the format that the caller
// names, the third says whether the checksums of a PNG are put right; the others are the file.

#include <array>

#include <QDir>

#include <zoeffectmodel.h>

#include "bytes.h"
#include "hostcatalogue.h"
#include "session.h"

namespace {

constexpr qint64 mostBytes = qint64(128) << 20;
constexpr int frame = 48;

const char* const suffixes[] = {"png", "jpg", "gif", "ico", "bmp", "ppm", "pgm",
                                "pbm", "xbm", "xpm", "svg", "cur", "",    "png.bmp"};
const char* const formats[] = {nullptr, "",    "png", "JPEG", "gif", "ico", "bmp",
                               "ppm",   "xbm", "xpm", "svg",  "cur", "none"};

std::uint32_t crc(const QByteArray& bytes)
{
    static const std::array<std::uint32_t, 256> table = [] {
        std::array<std::uint32_t, 256> result{};
        for (std::uint32_t i = 0; i < result.size(); ++i) {
            std::uint32_t value = i;
            for (int bit = 0; bit < 8; ++bit)
                value = (value & 1U) != 0 ? 0xedb88320U ^ (value >> 1U) : value >> 1U;
            result[i] = value;
        }
        return result;
    }();
    std::uint32_t value = 0xffffffffU;
    for (const char c : bytes)
        value = table[(value ^ std::uint8_t(c)) & 0xffU] ^ (value >> 8U);
    return ~value;
}

std::uint32_t bigEndian(const QByteArray& bytes, int at)
{
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i)
        value = value << 8U | std::uint8_t(bytes.at(at + i));
    return value;
}

/// Without this a changed byte is told by its chunk's checksum, and nothing behind is reached.
QByteArray withRightChecksums(QByteArray file)
{
    constexpr int signatureSize = 8;
    constexpr int frameSize = 12; // Length, name and checksum of a chunk.
    int at = signatureSize;
    while (at + frameSize <= file.size()) {
        const std::uint32_t length = bigEndian(file, at);
        if (length > std::uint32_t(int(file.size()) - at - frameSize))
            break;
        const int end = at + frameSize - 4 + int(length);
        const std::uint32_t value = crc(file.mid(at + 4, 4 + int(length)));
        for (int i = 0; i < 4; ++i)
            file[end + i] = char(std::uint8_t(value >> unsigned(24 - 8 * i)));
        at = end + 4;
    }
    return file;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString folder = Session::instance().folder();
    Bytes bytes(data, size);
    const char* const suffix = suffixes[bytes.below(int(std::size(suffixes)))];
    const char* const format = formats[bytes.below(int(std::size(formats)))];
    const bool mends = bytes.flag();

    const QString path =
        folder + QStringLiteral("/picture") + (*suffix ? QStringLiteral(".") : QString()) + QLatin1String(suffix);
    QFile file(path);
    require(file.open(QIODevice::WriteOnly), "the target can write its file");
    file.write(mends ? withRightChecksums(bytes.rest()) : bytes.rest());
    file.close();

    ZoEffectModel::InitEffectModel(hostCatalogue());
    ZoEffectModel model(QStringList{QStringLiteral("Watermark")});
    const QPixmap* image = model.getImage(path, format);
    require(image != nullptr, "there is always a pixmap");
    const QSize size1 = image->size();
    require(qint64(size1.width()) * size1.height() * 4 <= mostBytes, "no picture takes more than 128 MB");
    require(image->isNull() || model.getImage(path, nullptr) == image, "a picture is loaded once");

    model.setVideoSize(frame, frame);
    model.addDataItem(QStringLiteral("Watermark"), {{QStringLiteral("wm_istextwatermark"), false},
                                                    {QStringLiteral("wm_imageurl"), path},
                                                    {QStringLiteral("wm_imageformat"), QLatin1String(format)},
                                                    {QStringLiteral("wm_imagewidth"), frame / 2},
                                                    {QStringLiteral("wm_imageheight"), frame / 2}});
    const QPixmap shown = model.getWatermark(frame, frame, false);
    require(shown.isNull() == image->isNull(), "a picture that was loaded is shown");
    require(shown.isNull() || shown.size() == QSize(frame, frame), "the picture has the size of the frame");
    QFile::remove(path);
    return 0;
}
