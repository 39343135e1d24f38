#!/usr/bin/env bash
# Takes the pictures of the users' manual from the real program, in both languages, and puts them into
# docs/manual/images. Two tests in tests/manual set up what they show; this script gives them a screen of two dots
# for each one, a quiet window frame, and folders whose names may stand in pictures.
#   docs/make-manual-images.sh                      all
#   docs/make-manual-images.sh TEST [FUNCTION ...]  those of one test, of some of its functions
# Needs xvfb, openbox, xdotool, poppler-utils and imagemagick, and a build of the preset "release".
set -euo pipefail
cd "$(dirname "$0")/.."

# /srv/Kelmar Projects is seen in some pictures. In a name space of its own the script makes that folder
# without leaving a trace of it on the machine.
if [ -z "${KELMAR_MANUAL_ROOT:-}" ]; then
    KELMAR_MANUAL_ROOT='/srv/Kelmar Projects' exec unshare --map-root-user --mount sh -c \
        'mount -t tmpfs none /srv && exec "$@"' manual-images "$0" "$@"
fi

programs=$PWD/build/release/bin
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The frame of windows: as wide as its title needs, twice as large as usual.
theme=$work/share/themes/Manual/openbox-3
mkdir -p "$theme" "$work/config/openbox"
cat >"$theme/themerc" <<THEME
border.width: 2
padding.width: 12
padding.height: 8
window.client.padding.width: 0
window.handle.width: 0
window.*.border.color: #8c939b
window.*.title.separator.color: #c3c9cf
window.*.title.bg: flat solid
window.*.title.bg.color: #dfe3e8
window.*.label.bg: parentrelative
window.*.label.text.color: #22262b
window.label.text.justify: center
window.*.button.*.bg: parentrelative
window.*.button.*.image.color: #22262b
menu.items.bg: flat solid
menu.items.bg.color: #ffffff
THEME
cat >"$theme/close.xbm" <<XBM
#define close_width 20
#define close_height 20
static unsigned char close_bits[] = {
  0x03, 0x00, 0x0c, 0x07, 0x00, 0x0e, 0x0e, 0x00, 0x07, 0x1c, 0x80, 0x03, 0x38, 0xc0, 0x01, 0x70, 0xe0, 0x00,
  0xe0, 0x70, 0x00, 0xc0, 0x39, 0x00, 0x80, 0x1f, 0x00, 0x00, 0x0f, 0x00, 0x00, 0x0f, 0x00, 0x80, 0x1f, 0x00,
  0xc0, 0x39, 0x00, 0xe0, 0x70, 0x00, 0x70, 0xe0, 0x00, 0x38, 0xc0, 0x01, 0x1c, 0x80, 0x03, 0x0e, 0x00, 0x07,
  0x07, 0x00, 0x0e, 0x03, 0x00, 0x0c };
XBM
cat >"$work/config/openbox/rc.xml" <<RC
<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <theme>
    <name>Manual</name><titleLayout>LC</titleLayout><keepBorder>yes</keepBorder>
    <font place="ActiveWindow"><name>Liberation Sans</name><size>18</size><weight>bold</weight></font>
    <font place="InactiveWindow"><name>Liberation Sans</name><size>18</size><weight>bold</weight></font>
  </theme>
  <placement><policy>Smart</policy><center>yes</center></placement>
</openbox_config>
RC

# Dates of tests are written as the system writes them, whatever the program's language.
declare -A time_locale=([en]=en_GB.UTF-8 [de]=de_DE.UTF-8)

take() {
    local language=$1 test=$2
    shift 2
    rm -rf "$work/home" && mkdir -p "$work/home"
    (cd "$programs/tests" &&
        env -u LC_ALL HOME="$work/home" XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/share" \
            KELMAR_SCREEN=2800x2200 QT_SCALE_FACTOR=2 QT_QPA_PLATFORM=xcb QT_FONT_DPI=96 \
            LC_CTYPE=C.UTF-8 LC_TIME="${time_locale[$language]}" TZ=UTC QT_LOGGING_RULES='*=false' \
            KELMAR_MANUAL_LANGUAGE="$language" KELMAR_SCREENSHOTS="$work/$language" \
            ../../../../tests/support/in-real-windows.sh "./$test" "$@")
}

# What was printed: a page by itself, the pages of all forms side by side.
render() {
    local folder=$work/$1
    [ ! -e "$folder/report-printed.pdf" ] ||
        pdftoppm -r 150 -png -singlefile "$folder/report-printed.pdf" "$folder/report-printed"
    # Of the curve report the upper half of the first page; below it there is nothing.
    [ ! -e "$folder/curve-report.pdf" ] || {
        pdftoppm -r 150 -png -singlefile "$folder/curve-report.pdf" "$folder/curve-report"
        mogrify -crop 100%x46%+0+0 +repage "$folder/curve-report.png"
    }
    [ ! -e "$folder/forms-1.pdf" ] || {
        for form in "$folder"/forms-*.pdf; do pdftoppm -r 62 -png "$form" "${form%.pdf}"; done
        montage "$folder"/forms-?-*.png -tile x1 -geometry +8+8 -background '#a0a0a4' "$folder/forms.png"
        rm "$folder"/forms-?-*.png
    }
}

# Two dots for each of the screen's; windows have few colours, so that a palette holds them.
optimise() {
    local picture target dither
    for picture in "$work/$1"/*.png; do
        target=docs/manual/images/$1/$(basename "$picture")
        # Only where there is shading a palette takes dots of two colours for one between them.
        dither=None
        [ "$(identify -format %k "$picture")" -lt 4000 ] || dither=FloydSteinberg
        # The resolution says how large a picture is to be shown; stripping would take it away.
        convert "$picture" -dither $dither -colors 255 -strip -units PixelsPerInch -density 192 \
            -define png:compression-level=9 -define png:compression-strategy=0 \
            -define png:exclude-chunks=date,time -define png:include-chunks=pHYs PNG8:"$target"
    done
}

for language in en de; do
    if [ $# -gt 0 ]; then
        take "$language" "$@"
    else
        take "$language" tst_manualpictures
        take "$language" tst_manualcurvepictures
    fi
    mkdir -p "docs/manual/images/$language"
    render "$language"
    optimise "$language"
done
