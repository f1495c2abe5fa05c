# z/Architecture, 64 bits, most significant byte first; char is unsigned.
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(oru_triplet s390x-linux-gnu)
set(oru_emulator qemu-s390x)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
