#!/usr/bin/env bash
# Examples for the fuzzers, from the show and from other programs: corpus.sh FOLDER fills FOLDER/image, object and tune.
# Needs ImageMagick and cjpeg. A picture's first byte selects its reader, see fuzz_image.cpp.
set -euo pipefail
show=$(cd "$(dirname "$0")/../show" && pwd)
to=$1
mkdir -p "$to/image" "$to/object" "$to/tune"

# add_picture SELECTOR FILE NAME
add_picture() {
    { printf "\\x$1"; cat "$2"; } >"$to/image/$3"
}

small=$(mktemp -d)
trap 'rm -r "$small"' EXIT
convert "$show/fire1.jpg" -resize 33x17! "$small/picture.ppm"
convert "$small/picture.ppm" "$small/magick.pcx"
convert "$small/picture.ppm" -compress none "$small/magick.tga"
convert "$small/picture.ppm" -colorspace gray "$small/grey.jpg"
for sampling in 1x1 2x1 1x2 2x2 4x1; do
    cjpeg -quality 60 -sample $sampling "$small/picture.ppm" >"$small/sampled$sampling.jpg"
done
cjpeg -quality 90 -restart 2B "$small/picture.ppm" >"$small/restarts.jpg"
cjpeg -quality 30 -optimize -dct float "$small/picture.ppm" >"$small/optimised.jpg"
cjpeg -progressive "$small/picture.ppm" >"$small/progressive.jpg"
printf '0;\n1;\n2;\n' >"$small/scans" # every component on its own
cjpeg -quality 60 -scans "$small/scans" -restart 3B "$small/picture.ppm" >"$small/separate.jpg"
# without its Huffman tables, and with an interval that the data does not keep
perl -0777 -pe '1 while s/\xFF\xC4\x00[\x1F\xB5](?:.{29}|.{179})(?=\xFF[\xC4\xDA])//s' \
    "$small/sampled2x2.jpg" >"$small/standard-tables.jpg"
perl -0777 -pe 's/^\xFF\xD8/\xFF\xD8\xFF\xDD\x00\x04\x00\x02/' "$small/sampled1x1.jpg" >"$small/no-markers.jpg"

for file in "$small"/*.jpg "$show/petrolflare.jpg"; do
    add_picture 3 "$file" "$(basename "$file")"
done
for file in "$small/magick.pcx" "$show/bfs0.pcx" "$show/bfs1.pcx"; do
    add_picture 0 "$file" "$(basename "$file")"
    add_picture 1 "$file" "scaled-$(basename "$file")"
done
add_picture 2 "$small/magick.tga" magick.tga

find "$show" -name '*.lwo' -size -32k -exec cp {} "$to/object" \;
# The first four patterns of the tunes, without their instruments: two megabytes of samples would only be in the way.
for tune in "$show"/*.xm; do
    perl -0777 -ne '
        my $xm = $_;
        my $end = 60 + unpack "V", substr $xm, 60, 4;
        $end += unpack("V", substr $xm, $end, 4) + unpack "v", substr $xm, $end + 7, 2 for 1 .. 4;
        substr($xm, 70, 4) = pack "vv", 4, 0;
        print substr $xm, 0, $end' "$tune" >"$to/tune/$(basename "$tune")"
done
