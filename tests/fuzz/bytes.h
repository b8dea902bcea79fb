// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

#include <QColor>
#include <QFont>
#include <QMap>
#include <QPoint>
#include <QRectF>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariant>

/// Ends the process with \a text: what a target found is no crash by itself.
inline void require(bool holds, const char* text)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", text);
    std::abort();
}

/// Numbers, texts and values taken one after the other from the bytes of a fuzzer. At the end of the bytes
/// everything is 0 or empty. The corpora are made of such bytes: to change what a byte stands for, or the order
/// of a table below, makes them worthless; append instead.
class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size) : m_next(data), m_end(data + size) {}

    bool atEnd() const { return m_next == m_end; }

    int byte() { return atEnd() ? 0 : *m_next++; }

    bool flag() { return (byte() & 1) != 0; }

    /// One of 0 to \a count - 1.
    int below(int count) { return byte() % count; }

    /// A position in a list, mostly one that exists.
    int position()
    {
        const int choice = byte();
        return choice < 250 ? choice % 8 - 1 : number();
    }

    int number()
    {
        using Int = std::numeric_limits<int>;
        static const int edges[] = {
            Int::min(), Int::min() + 1, -65536, -256,           -1,        0, 1, 255, 256, 720, 1080, 32767,
            32768,      46341,          65536,  Int::max() - 1, Int::max()};
        const int choice = byte();
        if (choice < 128)
            return choice;
        const int edge = choice - 128;
        if (edge < int(sizeof edges / sizeof edges[0]))
            return edges[edge];
        return raw<int>();
    }

    double real()
    {
        using Real = std::numeric_limits<double>;
        static const double edges[] = {0.0,
                                       -0.0,
                                       0.5,
                                       1.0 / 3,
                                       -1.0,
                                       1e-300,
                                       1e300,
                                       -1e300,
                                       2147483647.5,
                                       -2147483648.5,
                                       Real::infinity(),
                                       -Real::infinity(),
                                       Real::quiet_NaN(),
                                       Real::denorm_min()};
        const int choice = byte();
        if (choice < int(sizeof edges / sizeof edges[0]))
            return edges[choice];
        return choice < 128 ? choice / 64.0 : raw<double>();
    }

    /// Up to 63 bytes as they come.
    QByteArray chunk() { return taken(byte() % 64); }

    QByteArray rest() { return taken(int(m_end - m_next)); }

    /// UTF-8 from the bytes, or one of the texts that mean something to formats, lists or numbers.
    QString text()
    {
        static const char* const words[] = {"",       "%n%s%08x",   "|",           "a|true|b|false", "true",    "0",
                                            "-1",     "12.7",       "1e400",       "0x10",           "#ff0000", "white",
                                            "Tahoma", "source_val", "Bold Italic", "\xef\xbf\xbf"};
        const int choice = byte();
        if (choice < int(sizeof words / sizeof words[0]))
            return QString::fromUtf8(words[choice]);
        return choice == 255 ? QString(2000, QLatin1Char('x')) : QString::fromUtf8(chunk());
    }

    /// A value of any type that a host may store, lists and maps of values included.
    QVariant value() { return valueAt(0); }

private:
    static constexpr int deepestValue = 3;

    QByteArray taken(int wanted)
    {
        const int size = int(std::min<std::ptrdiff_t>(wanted, m_end - m_next));
        QByteArray result(reinterpret_cast<const char*>(m_next), size);
        m_next += size;
        return result;
    }

    template <typename T>
    T raw()
    {
        const QByteArray bytes = taken(int(sizeof(T)));
        T result = 0;
        std::memcpy(&result, bytes.constData(), std::size_t(bytes.size()));
        return result;
    }

    QVariant valueAt(int depth)
    {
        constexpr int kinds = 20;
        const int kind = below(kinds);
        switch (depth < deepestValue ? kind : std::min(kind, 15)) {
        case 0:
        case 1:
            return number();
        case 2:
            return flag();
        case 3:
            return real();
        case 4:
        case 5:
            return text();
        case 6:
            return QColor(byte(), byte(), byte(), byte());
        case 7:
            return fontValue();
        case 8:
            return chunk();
        case 9:
            return QStringList{text(), text()};
        case 10:
            return raw<qlonglong>();
        case 11:
            return QSize(number(), number());
        case 12:
            return QRectF(real(), real(), real(), real());
        case 13:
            return QUrl(text());
        case 14:
            return QPoint(number(), number());
        case 15:
            return QVariant();
        case 16:
        case 17:
            return listAt(depth + 1);
        default:
            return mapAt(depth + 1);
        }
    }

    QFont fontValue()
    {
        const QString family = text();
        // Qt 6 streams the first family of a font that has none.
        QFont font(family.isEmpty() ? QStringLiteral("any") : family, byte());
        font.setBold(flag());
        font.setItalic(flag());
        return font;
    }

    QVariantList listAt(int depth)
    {
        QVariantList list;
        for (int left = below(4); left > 0; --left)
            list.append(valueAt(depth));
        return list;
    }

    QVariantMap mapAt(int depth)
    {
        QVariantMap map;
        for (int left = below(4); left > 0; --left) {
            const QString key = text();
            map.insert(key, valueAt(depth));
        }
        return map;
    }

    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
};
