#!/bin/sh
# header.sh DIRECTORY SHELL...: tests the idlgen-header in DIRECTORY, run by SHELL.
# shellcheck disable=SC2015,SC2016,SC2030,SC2031,SC2086
set -eu
script=$1/idlgen-header idlgen=$1/idlgen
shift
shell=$*
rm -rf "header with $shell"
mkdir -p "header with $shell/idl"
cd "header with $shell"

broken() { echo "$1" && cat err && exit 1; }

# generates IDL HEADER: checks that idlgen-header writes the same header as idlgen and prints nothing.
generates() {
  cp -- "$1" copy.idl && "$idlgen" -f copy.idl >/dev/null
  $shell "$script" "$1" "$2" >err 2>&1 && [ ! -s err ] && cmp -- copy.h "$2" || broken "$1 -> $2"
}

# fails REASON IDL HEADER: checks that it prints IDL and the reason and leaves no header or other file.
fails() {
  cp -- old.h "$3" 2>err || true
  status=0 && $shell "$script" "$2" "$3" 2>err || status=$?
  [ $status = 1 ] && [ ! -f "$3" ] && [ -z "$(find . -name '.idlgen-*')" ] &&
    grep -qxF -e "$2:" err && tail -n 1 err | grep -qF "no header: $1" || broken "$1: status $status"
}

# Any bytes, any names, and nothing is written next to the IDL file.
for name in 'a b.idl' "'\".idl" -f.idl '#.idl' '$HOME.idl' a.b.c.idl none; do
  printf 'message Pose { x\000: float64 }' >"idl/$name"
done
before=$(ls -l idl)
for path in idl/*; do generates "$path" "new/$path"; done
[ "$before" = "$(ls -l idl)" ] || broken 'the source directory has changed'
(cd idl && generates -f.idl -x.h && generates -f.idl -d/x.h && generates none "$PWD/new/\$(x)")

# Errors.
$shell "$script" idl 2>err && broken 'one argument' || [ $? = 2 ] || broken 'one argument'
idl='idl/a b.idl'
cp idl/none old.h
echo 'message M (' >bad.idl
fails "$idlgen ended with status 1" bad.idl x.h
grep -q 'WRONG format in (' err || broken 'the output of idlgen is missing'
fails 'missing is not a readable file' missing x.h
fails 'idl is not a readable file' idl x.h
fails 'idl is a directory' "$idl" idl
fails 'cannot create the directory old.h/' "$idl" old.h/x.h
fails 'cannot create a file in /proc/' "$idl" /proc/x.h
for program in ./missing ./idl false; do
  (export IDLGEN=$program && fails "$program ended with status" "$idl" x.h)
done
$shell "$script" bad.idl ./bad.idl 2>err || [ -s bad.idl ] || broken 'the IDL file is gone'

# Short and long headers that lack the last bytes, the last lines, the serialization functions or all
# bytes, and one that exceeds the file size limit.
echo 'namespace zentho message M { }' >short.idl
for i in $(seq 9); do printf 'message M%s { a: int8 b: int8 c: int8 }\n' "$i"; done >long.idl
echo 'namespace zentho' >>long.idl
printf '#!/bin/sh\ncp copy.h "$2" && truncate -s "-$cut" "$2"\n' >cutter && chmod +x cutter
for idl in short.idl long.idl; do
  generates "$idl" x.h
  serialization=$(awk '/^namespace zentho {/ {n = 0} {n += length + 1} END {print n}' copy.h)
  for cut in 1 2 27 "$serialization" "$(wc -c <copy.h)"; do
    (export IDLGEN=./cutter cut && fails 'the output of ./cutter is incomplete' "$idl" x.h)
  done
  (export IDLGEN=./cutter cut=0 && generates "$idl" x.h)
done
(ulimit -f 1 && fails "the output of $idlgen is incomplete" long.idl x.h)

# Killed and parallel runs do not disturb others, and files of other runs are not touched.
for i in $(seq 600); do head -n 9 long.idl; done >longer.idl
for pause in 0 0.005 0.01 0.02; do
  $shell "$script" longer.idl x.h &
  sleep $pause
  kill -9 $!
  [ ! -e x.h ] || cmp copy.h x.h || broken "half a header after $pause s"
  generates longer.idl x.h
done
for i in $(seq 8); do $shell "$script" longer.idl "many/$i.h" & done
wait
for i in $(seq 8); do cmp copy.h "many/$i.h" || broken "$i of many"; done
sh -c 'echo old >".idlgen-$$-1.h" && exec "$@"' sh $shell "$script" longer.idl x.h
grep -qx old .idlgen-*-1.h || broken 'the file of another run is gone'
printf '#!/bin/sh\nsleep 0.1\n' >cutter
rm .idlgen-*
(export IDLGEN=./cutter && exec $shell "$script" idl/none x.h 2>err) &
sleep 0.05
kill $!
wait $! && broken 'interrupted' || [ ! -e "$(echo .idlgen-*)" ] || broken 'interrupted: files left'
