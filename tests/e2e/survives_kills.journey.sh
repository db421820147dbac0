#!/usr/bin/env bash
# Killed ten times at random moments: at most a second of work is lost, and no file is damaged.
exec "$(dirname "$0")/../../tools/dev/kill_loop.sh" 10
