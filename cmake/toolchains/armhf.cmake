# ARM, 32 bits, least significant byte first; char is unsigned.
set(CMAKE_SYSTEM_PROCESSOR armhf)
set(oru_triplet arm-linux-gnueabihf)
set(oru_emulator qemu-arm)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
