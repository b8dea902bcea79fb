// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include <QColor>
#include <QVariant>

/// A value as C libraries take it.
struct NativeValue {
    enum class Kind { Integer, Real, Boolean, Text };

    Kind kind;
    long long integer = 0; ///< Also a colour, as 0xAARRGGBB.
    double real = 0.0;
    bool boolean = false;
    std::string text; ///< Also what is neither a number nor a colour.

    explicit NativeValue(const QVariant& value)
    {
        switch (value.userType()) {
        case QMetaType::Int:
            kind = Kind::Integer;
            integer = value.toInt();
            break;
        case QMetaType::QColor:
            kind = Kind::Integer;
            integer = value.value<QColor>().rgba();
            break;
        case QMetaType::Double:
            kind = Kind::Real;
            real = value.toDouble();
            break;
        case QMetaType::Bool:
            kind = Kind::Boolean;
            boolean = value.toBool();
            break;
        default:
            kind = Kind::Text;
            text = value.toString().toStdString();
            break;
        }
    }
};
