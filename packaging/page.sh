#!/bin/sh
# Usage: page.sh <page.md>
#
# Writes a page of docs/ as HTML, as it is installed: a desktop opens that in its browser, and Markdown in an editor. Links to
# other pages lead to theirs in HTML, and each heading has the name that links to it use.
set -eu

title=$(sed -n 's/^# //p' "$1" | head -n 1)
cat <<END
<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>Kelvane: $title</title>
<style>
body { max-width: 52em; margin: 2em auto; padding: 0 1em; font: 16px/1.5 sans-serif; color: #1c2430; background: #fff }
h1, h2, h3 { line-height: 1.2; margin: 1.6em 0 .5em }
code, pre { font: 14px/1.4 monospace; background: #f0f2f5 }
pre { padding: .7em 1em; overflow-x: auto }
code { padding: 0 .2em }
pre code { padding: 0 }
table { border-collapse: collapse; margin: 1em 0 }
th, td { border: 1px solid #c3c9d2; padding: .3em .6em; text-align: left; vertical-align: top }
th { background: #f0f2f5 }
img { max-width: 100%; border: 1px solid #c3c9d2 }
a { color: #0b57a4 }
@media print { body { max-width: none; margin: 0 } }
</style>
</head>
<body>
END
# The pages are the project's own: the line breaks in their tables are HTML.
cmark-gfm --unsafe --validate-utf8 --extension table --extension autolink "$1" |
    sed -E 's/(<a href="[A-Za-z0-9-]+)\.md(["#])/\1.html\2/g' |
    awk '
        /^<h[1-6]>/ {
            name = tolower($0)
            gsub(/<[^>]*>|&[a-z]+;/, "", name)
            gsub(/[^a-z0-9 _-]/, "", name)
            gsub(/ /, "-", name)
            sub(/>/, " id=\"" name "\">")
        }
        { print }'
cat <<'END'
</body>
</html>
END
