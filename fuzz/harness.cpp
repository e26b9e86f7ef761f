// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// No command is run, nothing is waited for, and nothing has to reach the disk: the files are the input. A key is not
// derived in the many rounds that make guessing slow: any key of its length will do.

#include <cstring>
#include <ctime>
#include <nettle/pbkdf2.h>
#include <unistd.h>

extern "C" int system(const char*)
{
    return 0;
}

extern "C" void sync() {}

extern "C" int fsync(int)
{
    return 0;
}

extern "C" int nanosleep(const timespec*, timespec*)
{
    return 0;
}

extern "C" void pbkdf2_hmac_sha1(std::size_t, const uint8_t*, unsigned, std::size_t, const uint8_t*, std::size_t length,
                                 uint8_t* key)
{
    std::memset(key, 0xa5, length);
}
