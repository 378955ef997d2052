# What ./run and ./test share. Sourced from the project's directory.

# Installs the packages of packages.txt that are missing; asks nothing.
install_packages() {
    local missing=() package as_root=()
    while read -r package; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done < <(grep -v -e '^#' -e '^$' packages.txt)
    [ ${#missing[@]} -eq 0 ] && return
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -q || return
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
}

# Configures and builds one preset.
build() {
    cmake --preset "$1" && cmake --build --preset "$1"
}
