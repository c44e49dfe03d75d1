#pragma once

#include <QRect>

/// The book's lengths are twips, 1440 to the inch. Windows here measure in logical pixels, 96 to the inch:
/// 15 twips each, whatever the screen's scale.
constexpr int twipsPerPixel = 15;

/// Pixels, rounded to the nearest.
constexpr int pixelsFromTwips(int twips) {
    return (twips + (twips < 0 ? -twipsPerPixel : twipsPerPixel) / 2) / twipsPerPixel;
}
constexpr int twipsFromPixels(int pixels) {
    return pixels * twipsPerPixel;
}
/// A rectangle's edges, each rounded on its own, so that neighbours stay neighbours.
constexpr QRect pixelsFromTwips(int left, int top, int width, int height) {
    const QPoint corner(pixelsFromTwips(left), pixelsFromTwips(top));
    return {corner, QPoint(pixelsFromTwips(left + width) - 1, pixelsFromTwips(top + height) - 1)};
}
