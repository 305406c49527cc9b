# Debian's cross compiler for Windows. Debian has no Qt for it: Qt's headers and moc are those of the machine, which
# is enough to compile the widget-free half into its libraries, and not to link a program.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_CXX_COMPILER_AR x86_64-w64-mingw32-gcc-ar)
file(GLOB Qt6_DIR /usr/lib/*/cmake/Qt6)
