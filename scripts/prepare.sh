# What ./run and ./test share. Sourced from the project's directory.

# Whether a package can be had; without package lists nobody knows.
available() {
    [ -z "$(apt-cache madison g++)" ] || [ -n "$(apt-cache madison "$1")" ]
}

# The packages of a part of packages.txt that are not installed.
missing_packages() {
    local package optional
    while read -r package optional; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] && continue
        [ -z "$optional" ] || available "$package" || continue
        echo "$package"
    done < <(sed -n "/^\[$1\]/,/^\[/p" packages.txt | grep -v -e '^[#[]' -e '^$')
}

# Installs what is missing of the parts; asks nothing.
install_packages() {
    local part as_root=()
    [ -n "$(for part; do missing_packages "$part"; done)" ] || return 0
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -q || return
    mapfile -t missing < <(for part; do missing_packages "$part"; done)
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
}

# Configures and builds one preset, whose further targets are named.
build() {
    local preset=$1
    shift
    cmake --preset "$preset" && cmake --build --preset "$preset" --target all "$@"
}
