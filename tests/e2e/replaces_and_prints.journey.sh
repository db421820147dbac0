#!/usr/bin/env bash
# Corrects a transcript with find and replace, prints it to a file without any printer, then to a queue of a private
# print server.
source "$(dirname "$0")/lib.sh"

start_print_server() {  # fails if no print server can run
  local dir=$scratch/cups
  PATH=$PATH:/usr/sbin
  command -v cupsd >/dev/null && command -v lpadmin >/dev/null || return 1
  mkdir -p "$dir"/{conf,spool/tmp,cache,state}
  chmod 755 "$scratch" "$dir"
  printf '%s\n' "Listen $dir/socket" 'Browsing No' 'DefaultAuthType None' 'WebInterface No' '<Policy default>' \
    '<Limit All>' 'Allow all' '</Limit>' '</Policy>' >"$dir/conf/cupsd.conf"
  printf '%s\n' "ServerRoot $dir/conf" "RequestRoot $dir/spool" "TempDir $dir/spool/tmp" "CacheDir $dir/cache" \
    "StateDir $dir/state" "ErrorLog $dir/error.log" "AccessLog $dir/access.log" "PageLog $dir/page.log" \
    'FileDevice Yes' >"$dir/conf/cups-files.conf"
  export CUPS_SERVER=$dir/socket
  as_companion cupsd -f -c "$dir/conf/cupsd.conf" -s "$dir/conf/cups-files.conf" >"$scratch/cups.log" 2>&1 &
  companions+=($!)
  printf '%s\n' '*PPD-Adobe: "4.3"' '*LanguageEncoding: ISOLatin1' '*NickName: "Office"' '*cupsFilter2: "application/pdf application/pdf 0 -"' \
    '*OpenUI *PageSize: PickOne' '*DefaultPageSize: A4' '*PageSize A4/A4: ""' '*CloseUI: *PageSize' \
    '*DefaultImageableArea: A4' '*ImageableArea A4/A4: "12 12 583 830"' '*DefaultPaperDimension: A4' \
    '*PaperDimension A4/A4: "595 842"' >"$dir/office.ppd"
  wait_until 10 'lpadmin -p Office -E -v file:/dev/null -P "$dir/office.ppd" 2>/dev/null' && lpadmin -d Office
}

print_keys() {  # KEYS...: presses them in the editor and opens the print dialog
  use_editor
  key "$@" ctrl+p
  switch_to Print
}
job() {  # N: the text of the pages that arrived at the server
  pdftotext -layout "$scratch/cups/spool/d0000$1-001" - 2>/dev/null | tr -d '\f'
}

cd "$HOME"
export CUPS_SERVER=$scratch/nobody
start_display
lay_folder
start_program
use_editor
type_text 'the pilot and the harbour'
key ctrl+Home ctrl+h
switch_to 'Replace\.\.\.'
expect_eq "the frame is 50 pixels from the corner" '50 50' "$(xwininfo -id "$window" | awk '
  /Absolute/ { at[++n] = $NF } /Relative/ { at[++m] -= $NF } END { print at[1], at[2] }')"
type_text 'THE'
key Tab
type_text 'a'
screenshot replacing
key alt+a
expect_gone 'Replace.*'
answer Return
expect_soon "the message with the count is closed" 10 '! box'
print_keys
screenshot printing
key Return
expect_soon "without a printer, a file is written" 10 \
  '[[ $(pdftotext "$HOME/Untitled 1.pdf" - 2>/dev/null) == "a pilot and a harbour"* ]]'
kill "$program"
wait "$program" || true
# A program ended by a signal keeps its unsaved text; the next part must begin with an empty one.
rm -rf "$folder/Files/Safety"

start_print_server || { echo "No print server can run here: printing on a queue is left out."; exit 0; }
start_program
use_editor
type_text 'all of the text'
print_keys ctrl+Home shift+ctrl+Right
key Return
expect_soon "the selection arrives at the printer" 10 '[[ $(job 1) == all* && $(job 1) != *text* ]]'
print_keys ctrl+End
key Return
expect_soon "the whole text arrives at the printer" 10 '[[ $(job 2) == "all of the text"* ]]'
print_keys
lpadmin -x Office
key Return
expect_gone Print
expect_stays "a printer that vanishes does not end the program" 1 running
