#!/usr/bin/env bash
# Takes the pictures of the technician's guide out of those of the demonstration:
#   ./run demo && tools/guide_pictures.sh build/demo/pictures
# A demonstration that has changed numbers its pictures anew: then the table below has to follow.
set -euo pipefail

if [ $# -ne 1 ] || [ ! -d "$1" ]; then
    echo "usage: tools/guide_pictures.sh FOLDER   (that of the demonstration's pictures)" >&2
    exit 2
fi
from=$(readlink -f "$1")
cd "$(dirname "$(readlink -f "$0")")/.."

while read -r number window name; do
    picture=$from/$number-$window.png
    if [ ! -e "$picture" ]; then
        echo "$picture is not there: look which picture shows $name, and change the table of $0" >&2
        exit 1
    fi
    cp "$picture" "docs/pictures/guide_$name.png"
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
