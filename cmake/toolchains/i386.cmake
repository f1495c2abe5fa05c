# x86, 32 bits, least significant byte first; 64-bit numbers lie at multiples of 4.
set(CMAKE_SYSTEM_PROCESSOR i386)
set(oru_triplet i686-linux-gnu)
set(oru_emulator qemu-i386)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
