#pragma once

#include <QImage>
#include <memory>

class PixelBuffer;

/// The pixels as the toolkit's picture, without a copy: it keeps them, and must not be drawn into.
/// Null for no pixels.
QImage pixelImage(std::shared_ptr<const PixelBuffer> pixels);
