/// \file
/// Light and shadow on what a picture shows.
#pragma once

#include "canvas.h"
#include "colour_map.h"
#include "model.h"

#include <QSize>

namespace Viewer {

/// The background of a pixel: neutral, lighter behind the model's middle.
/// \param place from 0 to 1 in both directions, from the top left
Light backgroundAt(float placeX, float placeY);

/// Light of a surface under three lamps that move with the eye.
/// \param normal as the eye sees it, of length 1; towards the eye
/// \param paint colour of the surface
Light shaded(const Vector& normal, const Light& paint);

/// The colour of a surface that turns its back to the eye, as in an open scan.
Light paintOfBacks();

/// How much of the light from all around comes to a sample: 1 on open ground, less in hollows.
/// \param reach in samples
float openness(const Canvas& canvas, int x, int y, float focal, float reach);

}  // namespace Viewer
