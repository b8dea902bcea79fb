// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Sizes, the crop, the picture, and the places of watermarks.

#include "referencemodel.h"

#include <algorithm>

#include "referencenames.h"

namespace reference {

namespace {

/// No number counts as 0 before it is compared with anything: an image without width, or a second node "Crop" without
/// width while the first one's crop is in force.
double quotient(double dividend, double divisor)
{
    return divisor != 0.0 ? dividend / divisor : 0.0;
}

void scale(Node* node, const QString& key, double factor)
{
    node->setData(key, truncated(node->number(key) * factor));
}

void setAll(Node* node, const QStringList& keys, std::initializer_list<int> values)
{
    for (int i = 0; i < keys.size(); ++i)
        node->setData(keys.at(i), values.begin()[i]);
}

} // namespace

void place(Node* item, long long x, long long y)
{
    setAll(item, {horizontal, vertical}, {static_cast<int>(x), static_cast<int>(y)});
}

// --- Geometry ---------------------------------------------------------------------------------------------

void Model::setVideoSize(int w, int h)
{
    setAll(root.get(), {"w", frameHeight}, {w, h});
}

void Model::adjustEffectInfo(int w, int h)
{
    const QSize old = baseSize();
    if (old == QSize(w, h))
        return;
    for (Node* node : root->items())
        adjustEffectItem(node, w, h, old.width(), old.height());
    setVideoSize(w, h);
}

namespace {

void rescaleWatermark(Node* mark, double sx, double sy)
{
    scale(mark, horizontal, sx);
    scale(mark, vertical, sy);
    if (mark->flag(isText))
        scale(mark, "wm_fontsize", sy);
    const int width = mark->number(imageWidth);
    const int height = mark->number(imageHeight);
    if (height == 0)
        return;
    const int scaled = truncated(sx * width);
    setAll(mark, {imageWidth, imageHeight}, {scaled, truncated(quotient(scaled, quotient(width, height)))});
}

void rescaleCrop(Node* item, bool isCroped, const QSize& newSize, const QSize& oldSize)
{
    int left = 0;
    int top = 0;
    int width = newSize.width();
    int height = newSize.height();
    if (isCroped) {
        const double sx = static_cast<double>(newSize.width()) / oldSize.width();
        const double sy = static_cast<double>(newSize.height()) / oldSize.height();
        const int oldWidth = item->number("crop_width");
        const int oldHeight = item->number("crop_height");
        left = truncated(item->number("crop_left") * sx);
        top = truncated(item->number("crop_top") * sy);
        double ratio = quotient(oldWidth, oldHeight);
        if (item->flag("crop_keepaspectratio") && item->text("crop_aspectratio") == "Original Ratio")
            ratio = static_cast<double>(newSize.width()) / newSize.height();
        width = truncated(sx * oldWidth);
        const double fromWidth = quotient(width, ratio);
        height = truncated(fromWidth);
        if (top + fromWidth >= oldSize.height()) { // The old height of the frame.
            height = truncated(sy * oldHeight);
            width = truncated(height * ratio);
        }
    }
    setAll(item, {"crop_left", "crop_top", "crop_width", "crop_height"}, {left, top, width, height});
}

} // namespace

void Model::adjustEffectItem(Node* item, int newW, int newH, int oldW, int oldH)
{
    if (!item || newW == 0 || newH == 0 || oldW == 0 || oldH == 0 || (newW == oldW && newH == oldH))
        return;
    const double sx = static_cast<double>(newW) / oldW;
    const double sy = static_cast<double>(newH) / oldH;

    if (item->name == watermark) {
        for (Node* mark : item->items())
            rescaleWatermark(mark, sx, sy);
    } else if (item->name == crop) {
        rescaleCrop(item, isCroped(), QSize(newW, newH), QSize(oldW, oldH));
    } else if (item->name == subtitle) {
        for (int pass = 0; pass < item->count(); ++pass) { // Once for each track, over and over.
            scale(item, subtitlePosition, sy);
            if (item->flag(subFromFile))
                scale(item, subtitleFontSize, sy);
        }
    }
}

bool Model::isCroped() const
{
    const Node* node = find(crop);
    if (!node || !node->isSelected())
        return false;
    const QSize size(node->number("crop_width"), node->number("crop_height"));
    return size.width() != 0 && size.height() != 0 && size != baseSize() && baseSize().width() != 0;
}

Crop Model::cropData() const
{
    const Node* node = find(crop);
    if (!isCroped())
        return {};
    return {QRect(node->number("crop_left"), node->number("crop_top"), node->number("crop_width"),
                  node->number("crop_height")),
            true};
}

// --- The watermark picture --------------------------------------------------------------------------------

QSize Model::getWatermark(int w, int h, bool honourIgnore)
{
    if (QSize(w, h) == baseSize())
        return paint(honourIgnore);
    Model rescaled(world);
    rescaled = *this;
    rescaled.adjustEffectInfo(w, h);
    return rescaled.getWatermark(w, h, true);
}

QSize Model::paint(bool honourIgnore)
{
    const Node* node = find(watermark);
    if (!node || !node->isSelected() || node->children.empty())
        return QSize();
    const QSize canvas = baseSize();
    constexpr int longestSide = 32767;
    constexpr long long mostPixels = 1LL << 28;
    if (canvas.isEmpty() || canvas.width() > longestSide || canvas.height() > longestSide
        || static_cast<long long>(canvas.width()) * canvas.height() > mostPixels)
        return QSize();

    bool painted = false;
    for (int i = node->count() - 1; i >= 0; --i) {
        const Node* mark = node->child(i);
        if (!mark || !mark->isSelected())
            continue;
        if (!mark->flag(isText)) {
            if (!getImage(mark->text("wm_imageurl"), mark->text("wm_imageformat")).isEmpty())
                painted = true;
            continue;
        }
        if ((honourIgnore && mark->flag("wm_ingnore")) || mark->text("wm_textcontent").isEmpty())
            continue;
        const QSize bound = measuredText(*mark);
        const long long left = mark->number(horizontal);
        const long long top = mark->number(vertical);
        if (left < canvas.width() && top < canvas.height() && left + bound.width() - 1 > 0
            && top + bound.height() - 1 > 0) {
            setData(imageWidth, bound.width(), watermark, i);
            setData(imageHeight, bound.height(), watermark, i);
            painted = true;
        }
    }
    return painted ? canvas : QSize();
}

QSize Model::getImage(const QString& path, const QString& format)
{
    if (loadedImages.count(path) > 0)
        return pictureSize(path, QString());
    const QSize loaded = pictureSize(path, format);
    if (loaded.isEmpty())
        logged(1178);
    else
        loadedImages.insert(path);
    return loaded;
}

// --- The place of a new watermark -------------------------------------------------------------------------

namespace {

/// A rectangle by its edges, right and bottom included. A negative width or height turns the edges about.
struct Place {
    long long left;
    long long top;
    long long right;
    long long bottom;

    bool contains(long long x, long long y) const { return between(left, right, x) && between(top, bottom, y); }

    static bool between(long long first, long long last, long long value)
    {
        if (last < first - 1)
            return last <= value && value <= first;
        return first <= value && value <= last;
    }
};

using Places = std::vector<Place>;

/// The places of the selected watermarks other than \a item.
Places placesBeside(const Node* item, const Node* parent)
{
    Places places;
    for (const Node* other : parent->items()) {
        if (!other->isSelected() || other == item)
            continue;
        const long long left = other->number(horizontal);
        const long long top = other->number(vertical);
        long long width = other->number(imageWidth);
        const long long height = other->number(imageHeight);
        if (width == 0 && height == 0)
            width = 30;
        places.push_back({left, top, left + width - 1, top + height - 1});
    }
    return places;
}

/// Places the item where neither the point nor the one 30 to its right is taken.
bool placedIfFree(Node* item, const Places& places, long long x, long long y)
{
    for (const Place& other : places) {
        if (other.contains(x, y) || other.contains(x + 30, y))
            return false;
    }
    place(item, x, y);
    return true;
}

bool placedByDiagonalSteps(Node* item, const Places& places, long long limitW, long long limitH)
{
    Places grown = places;
    for (Place& other : grown)
        other = {other.left - 1, other.top - 1, other.right + 1, other.bottom + 1};
    long long x = item->number(horizontal);
    long long y = item->number(vertical);
    for (; x < limitW && y < limitH; x += 30, y += 30) {
        if (placedIfFree(item, grown, x, y))
            return true;
    }
    return false;
}

bool placedRightOfLeftmost(Node* item, const Places& places, long long limitW, long long limitH)
{
    Places working = places;
    while (!working.empty()) {
        const auto picked = std::min_element(working.begin(), working.end(),
                                             [](const Place& a, const Place& b) { return a.right < b.right; });
        const long long x = picked->right + 20;
        const long long y = picked->top;
        if (x >= limitW || y > limitH || y < 0)
            return false;
        if (placedIfFree(item, places, x, y))
            return true;
        working.erase(picked);
    }
    return false;
}

bool placedAtLeftMargin(Node* item, const Places& places, long long limitH)
{
    Places working = places;
    while (!working.empty()) {
        const auto picked = std::max_element(working.begin(), working.end(),
                                             [](const Place& a, const Place& b) { return a.left < b.left; });
        const long long y = picked->top;
        if (picked->left < 31 || y > limitH || y < 0)
            return false;
        if (placedIfFree(item, places, 10, y))
            return true;
        working.erase(picked);
    }
    return false;
}

} // namespace

void Model::adjustWatermarkPos(Node* item)
{
    if (!item)
        return logged(1392);
    const NodePtr parent = item->parent.lock();
    if (!parent || parent->count() < 2)
        return;
    const Places places = placesBeside(item, parent.get());
    if (places.empty())
        return;
    const long long limitW = baseSize().width() - 30LL;
    const long long limitH = baseSize().height() - 30LL;
    if (placedByDiagonalSteps(item, places, limitW, limitH) || placedRightOfLeftmost(item, places, limitW, limitH)
        || placedAtLeftMargin(item, places, limitH))
        return;
    const long long x = places.front().left + 30;
    const long long y = places.front().top + 30;
    if (x < baseSize().width() && y < baseSize().height())
        place(item, x, y);
}

void Model::layOverWatermark(Node* item, const Properties& saved, bool direct) const
{
    const bool text = item->flag(isText);
    for (auto it = saved.cbegin(); it != saved.cend(); ++it) {
        const bool factor = it.key() == horizontalFactor || it.key() == verticalFactor;
        if (text ? !factor : it.key() == "wm_transparency")
            item->setData(it.key(), it.value());
    }
    if (!saved.contains(horizontalFactor) || !saved.contains(verticalFactor))
        return;
    const int x = truncated(baseSize().width() * toDouble(saved.value(horizontalFactor)));
    const int y = truncated(baseSize().height() * toDouble(saved.value(verticalFactor)));
    const NodePtr parent = item->parent.lock();
    if (!direct && parent && parent->count() >= 2) {
        const Places places = placesBeside(item, parent.get());
        // Every second one is looked at; past the end of an odd number nothing is free.
        size_t counter = 0;
        while (counter < places.size() && !places[counter].contains(x + 2LL, y + 2LL))
            counter += 2;
        if (counter != places.size())
            return;
    }
    place(item, x, y);
}

} // namespace reference
