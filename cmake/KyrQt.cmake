# The Qt that all of this build uses, and the least version of each that will do. No other file
# names a version of Qt.
set(KYR_QT 5 CACHE STRING "Major version of Qt, 5 or 6")
set_property(CACHE KYR_QT PROPERTY STRINGS 5 6)
set(KYR_QT5_LEAST 5.15)
set(KYR_QT6_LEAST 6.4)
if(NOT DEFINED KYR_QT${KYR_QT}_LEAST)
  message(FATAL_ERROR "KYR_QT is 5 or 6, and not \"${KYR_QT}\"")
endif()
set(KYR_QT_LEAST ${KYR_QT${KYR_QT}_LEAST})
find_package(Qt${KYR_QT} ${KYR_QT_LEAST} REQUIRED COMPONENTS Core)

# A QString of the one Qt is none of the other, though both have the same name: so library and
# package with Qt 6 are called otherwise, and both can be installed side by side. KYR_QT_DEFINITION
# is what core/KyrQtVersion.h compares with the Qt that it is compiled with.
if(KYR_QT EQUAL 5)
  set(KYR_PACKAGE Kyr)
  set(KYR_PKGCONFIG kyr)
  set(KYR_QT_DEFINITION "")
else()
  set(KYR_PACKAGE KyrQt${KYR_QT})
  set(KYR_PKGCONFIG kyr-qt${KYR_QT})
  set(KYR_QT_DEFINITION KYR_QT=${KYR_QT})
endif()
