#!/usr/bin/env bash
# Takes the pictures of the pages out of those of the demonstration, and out of those that the tests of the screens leave:
#   ./run demo && ./test -R Picture
#   tools/guide_pictures.sh build/demo/pictures build/sanitized/pictures
# A demonstration that has changed numbers its pictures anew: then the table below has to follow.
set -euo pipefail

if [ $# -ne 2 ] || [ ! -d "$1" ] || [ ! -d "$2" ]; then
    echo "usage: tools/guide_pictures.sh DEMONSTRATION TESTS   (the folders of their pictures)" >&2
    exit 2
fi
demonstration=$(readlink -f "$1")
tests=$(readlink -f "$2")
cd "$(dirname "$(readlink -f "$0")")/.."

# take PICTURE NAME: PICTURE becomes that of docs/pictures.
take() {
    if [ ! -e "$1" ]; then
        echo "$1 is not there: look which picture shows $2, and change the table of $0" >&2
        exit 1
    fi
    cp "$1" "docs/pictures/$2.png"
}

while read -r number window name; do
    take "$demonstration/$number-$window.png" "guide_$name"
done <<TABLE
273 FormConnect login
019 FormCalConfig configuration
021 FormCustomDialog calibrator
022 FormCustomDialog standard
025 box standard_overdue
037 FormDockingDown torque_list
038 box download_done
041 FormCustomDialog record_question
058 box upload_done
062 FormDockingDown fluke_list
091 box calibrator_disagrees
098 box record_exists
130 box output_by_hand
252 FormWorksheetPrint worksheet_list
269 FormWorkEntry worksheet_entry
TABLE

while read -r window name; do
    take "$tests/$window.png" "$name"
done <<TABLE
FormCalParam_input form_cal_param_input
FormCommunicationLog guide_communication_log
FormUnfinishedResults FormUnfinishedResults
frame guide_frame
TABLE
