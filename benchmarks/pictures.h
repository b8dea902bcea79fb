// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <QFont>
#include <QPixmap>
#include <QRect>
#include <QSize>
#include <QString>

#include <zoeffectmodel.h>

/// The watermarks of the picture workloads, spread over the frame: texts and images in turn.

struct Mark {
    bool isText;
    QString text;
    int left;
    int top;
    QSize imageSize;
    int fontSize;
};

std::vector<Mark> marksFor(int count, const QSize& frame);

/// The same marks in a frame whose sides are \a factor times as long.
std::vector<Mark> scaled(std::vector<Mark> marks, double factor);

/// The image that image watermarks show, and the path of its file, which is there as long as the process.
const QImage& watermarkImage();
QString watermarkFile();

/// The catalogue's opacity is (100 - 0) x 2.55, which is a little less than 255.
constexpr int watermarkAlpha = 254;

/// Gives \a model the base size \a frame and the watermarks \a marks.
void fillWithMarks(ZoEffectModel& model, const std::vector<Mark>& marks, const QSize& frame);

/// The limit: paints the marks with font, colour, rectangles and images made in advance.
class BarePainter {
public:
    BarePainter(const std::vector<Mark>& marks, const QSize& frame);

    QPixmap paint() const;
    /// Moves the first mark, which is a text.
    void moveFirst(int left);

private:
    struct Prepared {
        bool isText;
        QString text;
        QFont font;
        QRect textRect;
        QRectF imageRect;
    };

    std::vector<Prepared> m_prepared;
    QSize m_frame;
    QPixmap m_image;
};
