#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# start-host.sh PROGRAM LIBRARIES SAVED: starts a host where the scripts find one network, which is saved, and succeeds
# when it has switched Wi-Fi on, heard so, joined the network and watched the link. To be run isolated, and without the
# machine's network.
set -eu
program=$1
export LD_LIBRARY_PATH="$2" QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 RAWIFI_LOG_SECRETS=0
cp "$3" /apps/config/network.conf

# device_command NAME WORDS...: a script or tool of the device that writes WORDS as its answer.
device_command() {
    name=$1
    shift
    # shellcheck disable=SC2059 # the words are the format
    printf "#!/bin/sh\necho $name >>/tmp/called\n" >"/usr/bin/$name"
    [ $# -eq 0 ] || printf "printf '%s' >/home/wifi/temp.txt\n" "$*" >>"/usr/bin/$name"
    chmod 755 "/usr/bin/$name"
}
for tool in killall ifconfig route wpa_cli callwpaconf.sh dhcp_setip.sh; do
    device_command $tool
done
for script in calldefaultconf.sh getwpastatus.sh; do
    device_command $script 'OK\n'
done
device_command getlocalmac.sh '02:00:00:00:00:ff\n'
for script in getfirstaplist.sh getaplist.sh; do
    device_command $script '02:00:00:00:00:01\t2412\t40\t[ESS]\tCafe\n'
done
device_command getip.sh '192.168.11.100\n'
device_command getconnectstatus.sh 'bssid=02:00:00:00:00:01\nkey_mgmt=NONE\nwpa_state=COMPLETED\n'
export PATH="/usr/bin:$PATH"

touch /tmp/called
"$program" >/tmp/host.log 2>&1 &
host=$!
trap 'kill $host 2>/dev/null' EXIT

await() { # await PATTERN
    for _ in $(seq 250); do
        ! grep -aq "$1" /tmp/host.log /tmp/called || return 0
        kill -0 $host || break
        sleep 0.1
    done
    echo "not seen: $1"
    tail -n 30 /tmp/host.log | tr '\033' ' '
    return 1
}
await 'host heard linkend'
await 'getfirstaplist.sh'
await 'Successful connection'
await 'getconnectstatus.sh'
[ "$(cat /home/wifi/linkap.txt)" = 1 ]
