# MIPS, 32 bits, most significant byte first.
set(CMAKE_SYSTEM_PROCESSOR mips)
set(oru_triplet mips-linux-gnu)
set(oru_emulator qemu-mips)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
