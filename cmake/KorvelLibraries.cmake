# SPDX-License-Identifier: GPL-3.0-or-later
# The libraries that Korvel stands on; scripts/setup installs them.
find_package(PkgConfig REQUIRED)
pkg_check_modules(SQLITE REQUIRED IMPORTED_TARGET sqlite3)
pkg_check_modules(FFMPEG REQUIRED IMPORTED_TARGET libavformat libavcodec libavutil libswresample)
pkg_check_modules(FFTW REQUIRED IMPORTED_TARGET fftw3 fftw3f)
pkg_check_modules(FLUIDSYNTH REQUIRED IMPORTED_TARGET fluidsynth)
pkg_check_modules(SNDFILE REQUIRED IMPORTED_TARGET sndfile)
find_package(cubeb CONFIG REQUIRED)
find_package(LibXml2 REQUIRED)
find_package(ZLIB REQUIRED)
find_package(CLI11 REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets DBus Network PrintSupport Test LinguistTools)
