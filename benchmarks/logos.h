// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include <QImage>
#include <QPixmap>
#include <QRectF>
#include <QSize>
#include <QString>

#include <zoeffectmodel.h>

/// Round logos with a soft edge, of the sizes that people have, each in a file that is there as long as the process.

struct Logo {
    std::string name; ///< Its size when decoded.
    QImage image;
    QString file;
};

const std::vector<Logo>& logos();

/// Gives \a model the base size \a frame and \a logo as its one watermark, a quarter as wide as the frame.
void fillWithLogo(ZoEffectModel& model, const Logo& logo, const QSize& frame);

/// The limit: paints the logo, which is decoded in advance, where fillWithLogo() has it in a frame of 1280 pixels, all
/// of it \a factor times as large.
class PlainLogo {
public:
    PlainLogo(const Logo& logo, double factor, int transparency);

    void setTransparency(int transparency);
    QPixmap paint(const QSize& frame) const;

private:
    QImage m_decoded;
    QRectF m_rect;
    QPixmap m_shown;
};
