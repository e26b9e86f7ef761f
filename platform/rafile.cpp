// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rafile.h"

#include "ralog.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const int safeFlags = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;

RaFile streamOf(int descriptor, const char* mode)
{
    struct stat about;
    if (descriptor != -1 && (fstat(descriptor, &about) == -1 || !S_ISREG(about.st_mode))) {
        close(descriptor);
        return RaFile();
    }
    RaFile file(descriptor == -1 ? nullptr : fdopen(descriptor, mode));
    if (descriptor != -1 && !file) {
        close(descriptor);
    }
    return file;
}

bool failed(const char* what, const char* path)
{
    RA_WARN("%s %s: %s", what, path, std::strerror(errno));
    return false;
}

std::string temporaryOf(const char* path)
{
    return std::string(path) + ".tmp";
}

bool flushDirectoryOf(const std::string& path)
{
    const std::string directory = path.substr(0, path.rfind('/') + 1);
    const int descriptor = open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor == -1) {
        return false;
    }
    const bool flushed = fsync(descriptor) == 0;
    close(descriptor);
    return flushed;
}

} // namespace

RaFile raOpenForReading(const char* path)
{
    return streamOf(open(path, O_RDONLY | safeFlags), "r");
}

RaFile raOpenForUpdate(const char* path)
{
    return streamOf(open(path, O_RDWR | safeFlags), "r+");
}

RaFile raOpenForAppending(const char* path)
{
    return streamOf(open(path, O_WRONLY | O_CREAT | O_APPEND | safeFlags, 0600), "a");
}

RaFile raCreateAnew(const char* path)
{
    unlink(path);
    return streamOf(open(path, O_WRONLY | O_CREAT | O_EXCL | safeFlags, 0600), "w");
}

void raClearForWriting(const char* path)
{
    struct stat about;
    if (lstat(path, &about) == 0 && (!S_ISREG(about.st_mode) || about.st_nlink > 1)) {
        unlink(path);
    }
}

bool raReplaceFile(const char* path, const void* bytes, std::size_t size)
{
    return raPrepareReplacement(path, bytes, size) && raCompleteReplacement(path);
}

bool raPrepareReplacement(const char* path, const void* bytes, std::size_t size)
{
    const std::string temporary = temporaryOf(path);
    RaFile file = raCreateAnew(temporary.c_str());
    if (!file) {
        return failed("cannot create", temporary.c_str());
    }
    const bool written = std::fwrite(bytes, 1, size, file.get()) == size && std::fflush(file.get()) == 0
                         && fsync(fileno(file.get())) == 0;
    if (!written) {
        failed("cannot write", temporary.c_str());
        file.reset();
        unlink(temporary.c_str());
    }
    return written;
}

bool raCompleteReplacement(const char* path)
{
    const std::string temporary = temporaryOf(path);
    if (std::rename(temporary.c_str(), path) == -1) {
        failed("cannot replace", path);
        unlink(temporary.c_str());
        return false;
    }
    if (!flushDirectoryOf(path)) {
        failed("cannot flush the directory of", path); // the new file is in place; only its durability is in doubt
    }
    return true;
}
