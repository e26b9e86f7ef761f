#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# save-until-power-cut.sh SAVER: the first process of a virtual device without radios (powercuts.py). Mounts the disk
# at /apps and saves networks until the power goes.
export PATH=/usr/sbin:/usr/bin
exec >/dev/ttyS0 2>&1

modprobe -a virtio_blk ext4
mkdir -p /apps
[ -d /home/wifi ] || mkdir -m 777 /home/wifi
# The file system shall not flush a file by itself when it is renamed.
mount -t ext4 -o noauto_da_alloc /dev/vda /apps || echo "FAIL the disk cannot be mounted"
mkdir -p /apps/config
"$1" 2>/dev/null || echo "FAIL the saver ended with $?"
poweroff -f
