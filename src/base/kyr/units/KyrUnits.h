/// \file
/// The catalogue of units: the kinds of quantities, one object for each.
#pragma once

#include <kyr/units/KyrUnit.h>

/// What every kind of the catalogue declares: constructors that only its one object survives.
#define KYR_UNIT_KIND(Kind) \
 public:                    \
  Kind();                   \
  ~Kind() override;         \
                            \
 private:                   \
  Kind(const Kind& other);

namespace Kyr {

// The objects below are the only ones of their classes: constructing another raises ProgError
// "Do not instanciate, use uLength!" (or the like), copying one "Do not copy this". They live
// from the loading of the library on and are never destroyed: other threads may use them until the
// process is gone. The default unit is the internal one at first,
// but for angles (degree) and fractions (percent).

/// Lengths. Internal unit: millimetre.
/// \threadsafety as Unit
class KYR_EXPORT UnitLength : public UnitLinear {
  KYR_UNIT_KIND(UnitLength)
};

/// Temperatures. Internal unit: degree Celsius. "°R" is the scale of Réaumur.
/// \threadsafety as Unit
class KYR_EXPORT UnitTemp : public UnitLinear {
  KYR_UNIT_KIND(UnitTemp)
};

/// Angles. Internal unit: radian.
/// \threadsafety as Unit
class KYR_EXPORT UnitAngle : public UnitLinear {
  KYR_UNIT_KIND(UnitAngle)
};

/// Times. Internal unit: second.
/// \threadsafety as Unit
class KYR_EXPORT UnitTime : public UnitLinear {
  KYR_UNIT_KIND(UnitTime)
};

/// Strains. Internal unit: percent.
/// \threadsafety as Unit
class KYR_EXPORT UnitStrain : public UnitLinear {
  KYR_UNIT_KIND(UnitStrain)
};

/// Pressures and stresses. Internal unit: megapascal.
/// \threadsafety as Unit
class KYR_EXPORT UnitPress : public UnitLinear {
  KYR_UNIT_KIND(UnitPress)
};

/// Exposure times. Internal unit: second.
/// \threadsafety as Unit
class KYR_EXPORT UnitShutter : public UnitLinear {
  KYR_UNIT_KIND(UnitShutter)
};

/// Sizes in drawings and printed figures. Internal unit: millimetre.
/// \threadsafety as Unit
class KYR_EXPORT UnitFigure : public UnitLinear {
  KYR_UNIT_KIND(UnitFigure)

 public:
  static constexpr unsigned defaultDPI = 72;  ///< the pixels per inch that figures are made with

  /// Pixels per inch of the medium; defaultDPI at first.
  unsigned getDPI() const { return _dpi; }
  /// Sets the pixels per inch and with it the size of a pixel.
  /// \param dpi not 0: a pixel would be infinitely large then
  void setDPI(unsigned dpi);

 private:
  quint32 _dpi = defaultDPI;
};

/// Velocities. Internal unit: millimetre per second.
/// \threadsafety as Unit
class KYR_EXPORT UnitVelocity : public UnitLinear {
  KYR_UNIT_KIND(UnitVelocity)
};

/// Accelerations. Internal unit: millimetre per second squared.
/// \threadsafety as Unit
class KYR_EXPORT UnitAcceleration : public UnitLinear {
  KYR_UNIT_KIND(UnitAcceleration)
};

/// Strain rates. Internal unit: percent per second.
/// \threadsafety as Unit
class KYR_EXPORT UnitStrainVelocity : public UnitLinear {
  KYR_UNIT_KIND(UnitStrainVelocity)
};

/// Changes of strain rates. Internal unit: percent per second squared.
/// \threadsafety as Unit
class KYR_EXPORT UnitStrainAcceleration : public UnitLinear {
  KYR_UNIT_KIND(UnitStrainAcceleration)
};

/// Areas. Internal unit: square millimetre.
/// \threadsafety as Unit
class KYR_EXPORT UnitArea : public UnitLinear {
  KYR_UNIT_KIND(UnitArea)
};

/// Volumes. Internal unit: cubic millimetre.
/// \threadsafety as Unit
class KYR_EXPORT UnitVolume : public UnitLinear {
  KYR_UNIT_KIND(UnitVolume)
};

/// Parts of a whole. Internal unit: the ratio, 1 for the whole.
/// \threadsafety as Unit
class KYR_EXPORT UnitFraction : public UnitLinear {
  KYR_UNIT_KIND(UnitFraction)
};

/// Curvatures. Internal unit: one per millimetre.
/// \threadsafety as Unit
class KYR_EXPORT UnitCurvature : public UnitLinear {
  KYR_UNIT_KIND(UnitCurvature)
};

/// Angular velocities. Internal unit: degree per second (unlike angles, held in radians).
/// \threadsafety as Unit
class KYR_EXPORT UnitAngleVelocity : public UnitLinear {
  KYR_UNIT_KIND(UnitAngleVelocity)
};

/// Angular accelerations. Internal unit: degree per second squared.
/// \threadsafety as Unit
class KYR_EXPORT UnitAngleAcceleration : public UnitLinear {
  KYR_UNIT_KIND(UnitAngleAcceleration)
};

/// Differences of temperatures: 1 K is 1 °C here, and 1.8 °F. Internal unit: kelvin.
/// \threadsafety as Unit
class KYR_EXPORT UnitTempDifference : public UnitLinear {
  KYR_UNIT_KIND(UnitTempDifference)
};

KYR_EXPORT extern UnitLength uLength;                   ///< the only object of its class
KYR_EXPORT extern UnitTemp uTemp;                       ///< the only object of its class
KYR_EXPORT extern UnitAngle uAngle;                     ///< the only object of its class
KYR_EXPORT extern UnitTime uTime;                       ///< the only object of its class
KYR_EXPORT extern UnitStrain uStrain;                   ///< the only object of its class
KYR_EXPORT extern UnitPress uPress;                     ///< the only object of its class
KYR_EXPORT extern UnitShutter uShutter;                 ///< the only object of its class
KYR_EXPORT extern UnitFigure uFigure;                   ///< the only object of its class
KYR_EXPORT extern UnitVelocity uVelocity;               ///< the only object of its class
KYR_EXPORT extern UnitAcceleration uAccel;              ///< the only object of its class
KYR_EXPORT extern UnitStrainVelocity uStrainVelocity;   ///< the only object of its class
KYR_EXPORT extern UnitStrainAcceleration uStrainAccel;  ///< the only object of its class
KYR_EXPORT extern UnitArea uArea;                       ///< the only object of its class
KYR_EXPORT extern UnitVolume uVolume;                   ///< the only object of its class
KYR_EXPORT extern UnitFraction uFraction;               ///< the only object of its class
KYR_EXPORT extern UnitCurvature uCurvature;             ///< the only object of its class
KYR_EXPORT extern UnitAngleVelocity uAngleVelocity;     ///< the only object of its class
KYR_EXPORT extern UnitAngleAcceleration uAngleAccel;    ///< the only object of its class
KYR_EXPORT extern UnitTempDifference uTempDifference;   ///< the only object of its class

}  // namespace Kyr
