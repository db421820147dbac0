#!/usr/bin/env bash
# Exports a document with all formats, and the sample's subtitles, in the running program, and opens the files with
# other programs: LibreOffice for documents, FFmpeg and mpv for subtitles. Texts and formats have to be equal. Run by
# hand, because LibreOffice is large: apt-get install libreoffice-writer-nogui mpv
export PORTABLE_DIR=${PORTABLE_DIR-$(cd "$(dirname "$0")/../.." && pwd)/build/release/portable}
source "$(dirname "$0")/driver.sh"

for tool in soffice mpv ffmpeg; do
  command -v $tool >/dev/null || die "$tool is missing"
done

export_as() {  # FILE
  use_editor
  key alt+r
  sleep 0.3
  key x
  switch_to "Export the transcript"
  key ctrl+a
  type_text "$1"
  key Return
  expect_soon "$1 is exported" 20 "[[ -s $1 ]]"
}

picture=$(convert -size 40x30 xc:orange png:- | xxd -p | tr -d '\n')
cat >"$scratch/formats.rtf" <<END
{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}{\\f1 Liberation Serif;}}{\\colortbl;\\red200\\green0\\blue0;}
\\f0\\fs24 Plain, {\\b bold}, {\\i italic}, {\\ul underlined}, {\\strike struck}, {\\b\\i\\ul all}.\\par
{\\f1\\fs40\\cf1 Large, red} \\u233? \\u26085?\\u26412? \\u-10179?\\u-8704? & < > "quoted"\\par
\\pard\\qc Centred\\par \\pard\\qr Right\\par
\\pard{\\pntext\\f0\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf0\\pnindent0{\\pntxtb\\'B7}}\\fi-200\\li200 One\\par
{\\pntext\\f0\\'B7\\tab}Two {\\b bold}\\par
\\pard Picture: {\\pict\\pngblip\\picw40\\pich30\\picwgoal600\\pichgoal450 $picture}.\\par}
END
cat >"$scratch/talk.vtt" <<'END'
WEBVTT

00:01.000 --> 00:03.000
<v Anna Berg>Good morning, everybody, and welcome to the second part of this long interview.

00:03.200 --> 00:05.000
<v Dr. Weiss>Fine &amp; good, "as they say" &lt;laughs&gt;.

00:08.000 --> 00:11.500
<v Dr. Weiss>Élan, 日本 and 😀.

00:12.000 --> 00:13.000
<v Anna Berg>Yes.
END

start_display
lay_folder
start_program --document "$scratch/formats.rtf"
for form in docx odt html; do
  export_as "$scratch/formats.$form"
done
use_editor
key alt+r
sleep 0.3
key d
switch_to "Open a draft"
type_text "$scratch/talk.vtt"
key Return
use_editor "Untitled.*"
for form in srt vtt; do
  export_as "$scratch/exported.$form"
done
key ctrl+q  # the answers do not matter: the folder goes
for form in rtf docx odt html; do
  options=(--headless --convert-to "fodt:OpenDocument Text Flat XML" --outdir "$scratch/$form")
  # Otherwise it opens web pages in a program that writes no text documents.
  [[ $form != html ]] || options+=("--infilter=HTML (StarWriter)")
  soffice -env:UserInstallation="file://$scratch/office" "${options[@]}" "$scratch/formats.$form" >/dev/null 2>&1 || true
  [[ -s $scratch/$form/formats.fodt ]] || fail "LibreOffice does not open formats.$form"
done
for form in srt vtt; do
  ffmpeg -nostdin -v error -i "$scratch/exported.$form" -f srt -y "$scratch/$form.ffmpeg.srt"
  timeout 60 mpv --no-config --no-terminal --vo=null --ao=null --untimed --framedrop=no --script="$dev/exports_trial.lua" \
    --sub-file="$scratch/exported.$form" "av://lavfi:color=s=16x16:r=20:d=20" >"$scratch/$form.mpv" ||
    fail "mpv does not play exported.$form"
done
/usr/bin/python3 -B "$dev/exports_trial.py" "$scratch"
