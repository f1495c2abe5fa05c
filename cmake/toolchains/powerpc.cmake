# PowerPC, 32 bits, most significant byte first; char is unsigned.
set(CMAKE_SYSTEM_PROCESSOR ppc)
set(oru_triplet powerpc-linux-gnu)
set(oru_emulator qemu-ppc)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
