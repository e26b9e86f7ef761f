// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "linereader.h"

#include "raglobalfun.h"

#include <cstring>

int cutLineBreak(char* line)
{
    std::size_t length = std::strlen(line);
    if (length > 0 && line[length - 1] == '\n') {
        line[--length] = '\0';
    }
    return static_cast<int>(length);
}

LineReader::LineReader(std::FILE* file, Limit limit) : m_file(file), m_left(limit) {}

char* LineReader::next()
{
    if (m_left <= 0 || GetNextLineStr(m_line, m_file) != 0) {
        return nullptr;
    }
    // Not strlen(): a NUL in the line must hide neither its end nor its length.
    const void* const lineBreak = std::memchr(m_line, '\n', lineSize);
    if (lineBreak) {
        m_left -= static_cast<const char*>(lineBreak) - m_line + 1;
    } else {
        m_left -= lineSize - 1;
        skipRestOfLine();
    }
    return m_line;
}

void LineReader::skipRestOfLine()
{
    for (int c = std::getc(m_file); c != EOF && c != '\n' && m_left > 0; c = std::getc(m_file)) {
        --m_left;
    }
}
