/// \file
/// The catalogue of units: eighteen kinds of quantities, one object for each.
#pragma once

#include <kyr/units/KyrUnit.h>

namespace Kyr {

// The objects below are the only ones of their classes: constructing another raises ProgError
// "Do not instanciate, use uLength!" (or the like), copying one "Do not copy this". They live
// from the loading of the library on and are never destroyed: other threads may use them until the
// process is gone. The default unit is the internal one at first,
// but for angles (degree) and fractions (percent).

/// Lengths. Internal unit: millimetre.
class KYR_EXPORT UnitLength : public UnitLinear {
 public:
  UnitLength();
  ~UnitLength() override;

 private:
  friend struct TestProbe;
  UnitLength(const UnitLength& other);
};

/// Temperatures. Internal unit: degree Celsius. "°R" is the scale of Réaumur.
class KYR_EXPORT UnitTemp : public UnitLinear {
 public:
  UnitTemp();
  ~UnitTemp() override;

 private:
  friend struct TestProbe;
  UnitTemp(const UnitTemp& other);
};

/// Angles. Internal unit: radian.
class KYR_EXPORT UnitAngle : public UnitLinear {
 public:
  UnitAngle();
  ~UnitAngle() override;

 private:
  friend struct TestProbe;
  UnitAngle(const UnitAngle& other);
};

/// Times. Internal unit: second.
class KYR_EXPORT UnitTime : public UnitLinear {
 public:
  UnitTime();
  ~UnitTime() override;

 private:
  friend struct TestProbe;
  UnitTime(const UnitTime& other);
};

/// Strains. Internal unit: percent.
class KYR_EXPORT UnitStrain : public UnitLinear {
 public:
  UnitStrain();
  ~UnitStrain() override;

 private:
  friend struct TestProbe;
  UnitStrain(const UnitStrain& other);
};

/// Pressures and stresses. Internal unit: megapascal.
class KYR_EXPORT UnitPress : public UnitLinear {
 public:
  UnitPress();
  ~UnitPress() override;

 private:
  friend struct TestProbe;
  UnitPress(const UnitPress& other);
};

/// Exposure times. Internal unit: second.
class KYR_EXPORT UnitShutter : public UnitLinear {
 public:
  UnitShutter();
  ~UnitShutter() override;

 private:
  friend struct TestProbe;
  UnitShutter(const UnitShutter& other);
};

/// Sizes in drawings and printed figures. Internal unit: millimetre.
class KYR_EXPORT UnitFigure : public UnitLinear {
 public:
  UnitFigure();
  ~UnitFigure() override;

  /// Pixels per inch of the medium; 72 at first.
  unsigned getDPI() const { return _dpi; }
  /// Sets the pixels per inch and with it the size of a pixel.
  /// \param dpi not 0: a pixel would be infinitely large then
  void setDPI(unsigned dpi);

 private:
  friend struct TestProbe;
  UnitFigure(const UnitFigure& other);

  quint32 _dpi;
};

/// Velocities. Internal unit: millimetre per second.
class KYR_EXPORT UnitVelocity : public UnitLinear {
 public:
  UnitVelocity();
  ~UnitVelocity() override;

 private:
  friend struct TestProbe;
  UnitVelocity(const UnitVelocity& other);
};

/// Accelerations. Internal unit: millimetre per second squared.
class KYR_EXPORT UnitAcceleration : public UnitLinear {
 public:
  UnitAcceleration();
  ~UnitAcceleration() override;

 private:
  friend struct TestProbe;
  UnitAcceleration(const UnitAcceleration& other);
};

/// Strain rates. Internal unit: percent per second.
class KYR_EXPORT UnitStrainVelocity : public UnitLinear {
 public:
  UnitStrainVelocity();
  ~UnitStrainVelocity() override;

 private:
  friend struct TestProbe;
  UnitStrainVelocity(const UnitStrainVelocity& other);
};

/// Changes of strain rates. Internal unit: percent per second squared.
class KYR_EXPORT UnitStrainAcceleration : public UnitLinear {
 public:
  UnitStrainAcceleration();
  ~UnitStrainAcceleration() override;

 private:
  friend struct TestProbe;
  UnitStrainAcceleration(const UnitStrainAcceleration& other);
};

/// Areas. Internal unit: square millimetre.
class KYR_EXPORT UnitArea : public UnitLinear {
 public:
  UnitArea();
  ~UnitArea() override;

 private:
  friend struct TestProbe;
  UnitArea(const UnitArea& other);
};

/// Volumes. Internal unit: cubic millimetre.
class KYR_EXPORT UnitVolume : public UnitLinear {
 public:
  UnitVolume();
  ~UnitVolume() override;

 private:
  friend struct TestProbe;
  UnitVolume(const UnitVolume& other);
};

/// Parts of a whole. Internal unit: the ratio, 1 for the whole.
class KYR_EXPORT UnitFraction : public UnitLinear {
 public:
  UnitFraction();
  ~UnitFraction() override;

 private:
  friend struct TestProbe;
  UnitFraction(const UnitFraction& other);
};

/// Curvatures. Internal unit: one per millimetre.
class KYR_EXPORT UnitCurvature : public UnitLinear {
 public:
  UnitCurvature();
  ~UnitCurvature() override;

 private:
  friend struct TestProbe;
  UnitCurvature(const UnitCurvature& other);
};

/// Angular velocities. Internal unit: degree per second (unlike angles, held in radians).
class KYR_EXPORT UnitAngleVelocity : public UnitLinear {
 public:
  UnitAngleVelocity();
  ~UnitAngleVelocity() override;

 private:
  friend struct TestProbe;
  UnitAngleVelocity(const UnitAngleVelocity& other);
};

/// Angular accelerations. Internal unit: degree per second squared.
class KYR_EXPORT UnitAngleAcceleration : public UnitLinear {
 public:
  UnitAngleAcceleration();
  ~UnitAngleAcceleration() override;

 private:
  friend struct TestProbe;
  UnitAngleAcceleration(const UnitAngleAcceleration& other);
};

KYR_EXPORT extern UnitLength uLength;
KYR_EXPORT extern UnitTemp uTemp;
KYR_EXPORT extern UnitAngle uAngle;
KYR_EXPORT extern UnitTime uTime;
KYR_EXPORT extern UnitStrain uStrain;
KYR_EXPORT extern UnitPress uPress;
KYR_EXPORT extern UnitShutter uShutter;
KYR_EXPORT extern UnitFigure uFigure;
KYR_EXPORT extern UnitVelocity uVelocity;
KYR_EXPORT extern UnitAcceleration uAccel;
KYR_EXPORT extern UnitStrainVelocity uStrainVelocity;
KYR_EXPORT extern UnitStrainAcceleration uStrainAccel;
KYR_EXPORT extern UnitArea uArea;
KYR_EXPORT extern UnitVolume uVolume;
KYR_EXPORT extern UnitFraction uFraction;
KYR_EXPORT extern UnitCurvature uCurvature;
KYR_EXPORT extern UnitAngleVelocity uAngleVelocity;
KYR_EXPORT extern UnitAngleAcceleration uAngleAccel;

}  // namespace Kyr
