#!/usr/bin/env bash
# Placement, focus, keys and full screen under two window managers that differ in whom they give the focus to.
exec "$(dirname "$0")/../../tools/dev/desktops.sh" openbox xfwm4
