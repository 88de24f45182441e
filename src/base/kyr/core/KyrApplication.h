/// \file
/// The applications of the suite.
#pragma once

#include <kyr/core/KyrPlatform.h>

namespace Kyr {

/// The applications of the suite; the numbers are stored in settings and never change.
enum Application_t : int {
  ApplicationSheetForming = 0,     ///< deformation of formed sheet metal
  ApplicationMotion = 1,           ///< movement and vibration of marked points
  ApplicationInspection = 2,       ///< comparison of a scan with its design
  ApplicationViewer = 3,           ///< shows projects, changes nothing
  ApplicationDeformation = 4,      ///< surface strain of loaded parts
  ApplicationMaterialTest = 5,     ///< material parameters from test machines
  ApplicationTestRig = 6,          ///< strain and shape on test rigs with several sensors
  ApplicationLauncher = 7,         ///< starts the others
  ApplicationServer = 8,           ///< computes on behalf of others, without user interface
  ApplicationSensor = 9,           ///< drives a scanner and makes the measurement
  ApplicationLargeStructure = 10,  ///< shape and strain of wings, blades and hulls
  ApplicationProduction = 11,      ///< unattended measuring cell in a production line
};

/// What the library must know of one application.
/// \threadsafety any thread; the table is constant
struct ApplicationProperties {
  const char* name;       ///< plain English name, static text
  bool usesProfile;       ///< has a directory of measurement profiles
  bool hasUserInterface;  ///< false for servers and unattended programs
};

/// Number of applications; their values run from 0 to one less.
constexpr unsigned applicationCount = 12;

/// The row of an application in the suite's table.
/// \throws ProgError "unknown application" for a value outside the enumeration
/// \threadsafety any thread
KYR_EXPORT const ApplicationProperties& applicationProperties(Application_t application);

}  // namespace Kyr
