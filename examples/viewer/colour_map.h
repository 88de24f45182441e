/// \file
/// The colours of values: blue below zero, light grey at zero, red above.
#pragma once

#include <QColor>

#include <array>

namespace Viewer {

/// Red, green and blue in linear light, each from 0 to 1; light may add up to more.
using Light = std::array<float, 3>;

/// The colour of a value.
///
/// Both arms start at the same light grey and darken alike, so that equal amounts above and
/// below zero weigh the same to the eye, also to one that confuses red and green.
/// \param position from -1 to 1, 0 for the value zero; what lies outside gets the end's colour,
///        what is no number the colour of surfaces without a value
/// \threadsafety any thread
Light lightOf(float position);

/// The colour of a value for the screen; as lightOf().
QColor colourOf(float position);

/// What a part of a picture in linear light is on the screen, 0 to 255.
/// \param shift added before rounding, from -0.5 to 0.5 levels
/// \threadsafety any thread
int screenLevel(float light, float shift = 0);

/// The reverse of screenLevel() for a colour of the screen.
Light lightOf(const QColor& colour);

}  // namespace Viewer
