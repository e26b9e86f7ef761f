#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
"""terminal.py [--type PROMPT TEXT] COMMAND...: runs a command on a terminal of its own, types TEXT when it has shown
PROMPT, prints all that the terminal has shown, and ends as the command did."""

import os
import pty
import sys

arguments = sys.argv[1:]
prompt = text = None
if arguments[0] == "--type":
    prompt, text = (word.encode() for word in arguments[1:3])
    arguments = arguments[3:]

child, terminal = pty.fork()
if child == 0:
    os.execvp(arguments[0], arguments)
shown = b""
while True:
    try:
        part = os.read(terminal, 4096)
    except OSError:  # the other side is closed
        break
    if not part:
        break
    shown += part
    if prompt and prompt in shown:
        os.write(terminal, text)
        prompt = None
sys.stdout.buffer.write(shown)
sys.stdout.flush()
status = os.waitpid(child, 0)[1]
sys.exit(os.WEXITSTATUS(status) if os.WIFEXITED(status) else 128 + os.WTERMSIG(status))
