#!/usr/bin/env bash
# Installs the package, uses the program, removes the package: all on a copy of this machine that
# nobody else sees and that is gone afterwards. The machine itself is only read.
#
#   clean_place.sh FILE.deb EXAMPLES
#
# Run by test_packaging.py. Prints what went wrong and ends with 1; with 77 where such a copy
# cannot be made.
set -euo pipefail
[ $# -eq 2 ]
[ "$(id -u)" -eq 0 ] || exit 77
# What is mounted from here on is mounted for this script alone.
if [ -z "${QUOR_CLEAN_PLACE-}" ]; then
    QUOR_CLEAN_PLACE=yes unshare --mount "$0" "$@"
    exit
fi
package=$(realpath "$1")
examples=$(realpath "$2")

fail() {
    printf 'clean place: %s\n' "$*" >&2
    exit 1
}

# ---- the copy: writing goes to memory
place=$(mktemp -d)
started=()
finish() {
    for process in "${started[@]}"; do
        kill "$process" 2>/dev/null || true
        wait "$process" 2>/dev/null || true
    done
    umount --recursive --lazy "$place" 2>/dev/null || true
    rmdir "$place"
}
trap finish EXIT
mount -t tmpfs tmpfs "$place" || exit 77
mkdir "$place"/{changed,work,root}
mount -t overlay overlay "$place/root" \
    -o "lowerdir=/,upperdir=$place/changed,workdir=$place/work" || exit 77
root=$place/root
mount --rbind /dev "$root/dev"
mount --rbind /proc "$root/proc"
mount -t tmpfs tmpfs "$root/tmp"
mkdir -m 777 "$root/tmp/home" "$root/tmp/.X11-unix"
cp "$package" "$root/tmp/quor.deb"
cp -r "$examples" "$root/tmp/examples"

surroundings=(env -i "PATH=$PATH" LC_ALL=C.UTF-8)
inside() { chroot "$root" "${surroundings[@]}" "$@"; }
# Somebody who may not write under /usr.
user=(chroot --userspec=65534:65534 "$root" "${surroundings[@]}" HOME=/tmp/home)
as_user() { "${user[@]}" "$@"; }

# If the package is on the machine already, it is none of the copy.
inside dpkg --purge quor >/dev/null 2>&1 || true
find "$place/changed" -mindepth 1 | sort >"$place/before"

# ---- install: unpacking, dependencies, triggers
inside dpkg --install /tmp/quor.deb >"$place/log" 2>&1 || fail "not installed: $(cat "$place/log")"
[ "$(inside dpkg-query --show --showformat='${db:Status-Status}' quor)" = installed ] ||
    fail "not installed"
[ -z "$(inside dpkg --verify quor)" ] || fail "installed files differ from the package"
for program in quor quor-render; do
    if as_user ldd "/usr/bin/$program" | grep "not found"; then
        fail "$program lacks libraries"
    fi
done

# ---- use
touch "$place/stamp"
version=$(as_user quor --version)
[ "$version" = "quor $(inside dpkg-query --show --showformat='${Version}' quor)" ] ||
    fail "the program says $version"

exports=/tmp/home/.local/share/quor/UserFiles/Esportazioni
as_user quor --export "/tmp/examples/Giulia Ferraro.bio" >"$place/products" ||
    fail "no export"
while IFS= read -r line; do
    file=${line%: *}
    [[ $file == $exports/* ]] || fail "exported to $file"
    [ -s "$root$file" ] || fail "$file is not there"
done <"$place/products"
[ -s "$place/products" ] || fail "nothing exported"

as_user quor-render "${file:?}" /tmp/home/page.pdf || fail "the page is not set"
[ "$(head -c 5 "$root/tmp/home/page.pdf")" = "%PDF-" ] || fail "the page is no PDF file"

Xvfb -displayfd 3 -nolisten tcp 3>"$place/display" >/dev/null 2>&1 &
started+=($!)
for _ in {1..100}; do
    [ ! -s "$place/display" ] || break
    sleep 0.1
done
# The display's socket lies in this machine's /tmp, or has no place in the file system.
display=:$(cat "$place/display")
mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix"
export DISPLAY=$display
# The question about the date would stand in the way: the person's day becomes today.
day=$(date +%F)
sed -i "3s/.*/#$day#\r/" "$root/tmp/examples/Giulia Ferraro.bio"
"${user[@]}" "DISPLAY=$display" quor --open "/tmp/examples/Giulia Ferraro.bio" \
    >"$place/said" 2>&1 &
program=$!
started+=("$program")
timeout 30 xdotool search --sync --onlyvisible --name '^Quor$' >"$place/window" || fail "no window"
window=$(tail -1 "$place/window")
class=$(xprop -id "$window" WM_CLASS)
expected=$(sed -n 's/^StartupWMClass=//p' "$root/usr/share/applications/quor.desktop")
[ "$class" = "WM_CLASS(STRING) = \"quor\", \"$expected\"" ] || fail "the window's class: $class"
sleep 1
xdotool windowfocus "$window"
sleep 0.5
xdotool key F1
timeout 30 xdotool search --sync --onlyvisible --name '^Guida di Quor' >/dev/null ||
    fail "no help"
# Pages are shown by a module of the program's, which lies in a folder of its own.
help=$(xdotool search --onlyvisible --name '^Guida di Quor' | tail -1)
xdotool windowfocus "$help" key --window "$help" Escape || true
xdotool windowfocus "$window"
sleep 0.5
xdotool key alt+b
sleep 0.5
xdotool key n
timeout 30 xdotool search --sync --onlyvisible --name '^Stampa$' >/dev/null || fail "no window for printing"
sleep 0.5
xdotool key Return
timeout 60 xdotool search --sync --onlyvisible --name '^Anteprima di stampa$' >/dev/null ||
    fail "no preview"
kill -TERM "$program"
wait "$program" || fail "the program ended with $?: $(cat "$place/said")"
[ ! -s "$place/said" ] || fail "the program said: $(cat "$place/said")"

# Nothing of the user's outside the user's folders.
written=$(find "$place/changed" -newer "$place/stamp" -type f)
[ -z "$written" ] || fail "written outside the user's folders: $written"
# The administrator, who may write everywhere, does not do so either.
inside mkdir /tmp/administrator
inside HOME=/tmp/administrator quor --export "/tmp/examples/Giulia Ferraro.bio" >"$place/products" ||
    fail "no export by the administrator"
if grep -v "^/tmp/administrator/.local/share/quor/UserFiles/Esportazioni/" "$place/products"; then
    fail "the administrator's exports lie elsewhere"
fi
[ -z "$(find "$place/changed" -name UserFiles)" ] || fail "UserFiles lies in the program's folder"

# ---- remove
inside dpkg --purge quor >"$place/log" 2>&1 || fail "not removed: $(cat "$place/log")"
if inside dpkg-query --show quor >/dev/null 2>&1; then
    fail "the package is still known"
fi
# What is there now and was not there before, but for the package manager's own books.
while IFS= read -r changed; do
    path=${changed#"$place/changed"}
    case $path in
    /var/lib/dpkg/* | /var/log/* | /var/cache/*) continue ;;
    esac
    [[ $path != *quor* ]] || [ ! -e "$root$path" ] || fail "left behind: $path"
    [ -d "$changed" ] || [ ! -e "$root$path" ] || [ -e "$path" ] || fail "left behind: $path"
    if [ -f "$changed" ] && [ ! -c "$changed" ] && grep --quiet --text quor "$changed"; then
        grep --quiet --text quor "$path" 2>/dev/null || fail "still named in $path"
    fi
done < <(find "$place/changed" -mindepth 1 | sort | comm -13 "$place/before" -)
if grep --quiet '^Package: quor$' "$root/var/lib/dpkg/status" || compgen -G "$root/var/lib/dpkg/info/quor.*"; then
    fail "the package manager still knows the package"
fi
echo "installed, used, removed"
