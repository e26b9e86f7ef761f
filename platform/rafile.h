// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAFILE_H
#define RAWIFI_RAFILE_H

#include <cstddef>
#include <cstdio>
#include <memory>

// Files in directories that every process may write: only regular files are opened, links are not followed,
// and nothing waits (a FIFO is refused, not opened).

struct RaFileCloser
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};
typedef std::unique_ptr<std::FILE, RaFileCloser> RaFile;

/** Opens an existing regular file; null when it is none or cannot be opened. */
RaFile raOpenForReading(const char* path);

/** As raOpenForReading(), but fails also when the file may not be written ("r+"). */
RaFile raOpenForUpdate(const char* path);

/** Opens a regular file for appending, or creates it with mode 0600; null when it cannot. */
RaFile raOpenForAppending(const char* path);

/** Creates a file with mode 0600 in place of whatever file or link is there, and opens it; null when it cannot. */
RaFile raCreateAnew(const char* path);

/**
 * Before a command writes to \a path: takes away what stands there unless it is a regular file without another name,
 * so that the shell neither writes through a link nor waits for the reader of a pipe. A directory stays.
 */
void raClearForWriting(const char* path);

/**
 * Replaces a file's content so that it holds either the old or the new bytes, whatever happens: temporary file
 * in the same directory (the path and ".tmp"), mode 0600, write, fsync, rename, fsync of the directory.
 * Returns false with the old file untouched and one log line that says what failed.
 */
bool raReplaceFile(const char* path, const void* bytes, std::size_t size);

/** The two halves of raReplaceFile(): the temporary file is written and flushed, then takes the file's place. */
bool raPrepareReplacement(const char* path, const void* bytes, std::size_t size);
bool raCompleteReplacement(const char* path);

#endif
