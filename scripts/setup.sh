#!/usr/bin/env bash
# Installs everything the build, the program and the tests need on Debian 12.
# Idempotent: a second run installs nothing and prints nothing but errors.
set -euo pipefail

PACKAGES=(
  # build
  build-essential cmake ninja-build pkg-config clang libclang-rt-14-dev
  qt6-base-dev qt6-base-dev-tools qt6-declarative-dev qt6-tools-dev qt6-svg-dev
  libicu-dev libx11-dev libx11-xcb-dev libxcb1-dev libxcb-xinput-dev libxext-dev libxss-dev libcanberra-dev
  libasound2-dev
  qt6-speech-dev
  qt6-multimedia-dev
  # run
  qml6-module-qtquick qml6-module-qtquick-window qml6-module-qtquick-controls
  qml6-module-qtquick-layouts qml6-module-qtquick-templates qml6-module-qtquick-shapes
  qml6-module-qtqml qml6-module-qtqml-models qml6-module-qtqml-workerscript
  python3 procps sound-theme-freedesktop fonts-inter fonts-jetbrains-mono
  speech-dispatcher speech-dispatcher-espeak-ng qt6-speech-speechd-plugin
  gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-libav
  qt6-image-formats-plugins qt6-image-formats-plugin-pdf
  # tests and headless runs
  xvfb xauth xdotool xclip x11-utils x11-xserver-utils openbox wmctrl xcompmgr imagemagick xterm hsetroot
  dbus dbus-x11 tmux
  mpv mpv-mpris sox
  ffmpeg
)

missing=()
for p in "${PACKAGES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
sudo_cmd=""
[ "$(id -u)" -eq 0 ] || sudo_cmd="sudo"
export DEBIAN_FRONTEND=noninteractive
if [ ${#missing[@]} -gt 0 ]; then
  $sudo_cmd apt-get update -qq
  $sudo_cmd apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi

# Node.js and npm come with the machine image; the tests that drive Claude Code need them.
if ! command -v npm >/dev/null 2>&1; then
  $sudo_cmd apt-get install -y -qq --no-install-recommends nodejs npm >/dev/null
fi

# Claude Code, pinned, in a git-ignored folder of the project: the tests labelled "claude" drive the
# real program offline. Reinstalled only when the pinned version is not the one in place.
CLAUDE_CODE_VERSION=2.1.330
claude_deps="$(cd "$(dirname "$0")/.." && pwd)/.deps/claude-code"
claude_pkg="$claude_deps/node_modules/@anthropic-ai/claude-code/package.json"
if ! grep -q "\"version\": \"$CLAUDE_CODE_VERSION\"" "$claude_pkg" 2>/dev/null \
  || ! [ -x "$claude_deps/node_modules/.bin/claude" ]; then
  mkdir -p "$claude_deps"
  npm install --prefix "$claude_deps" --no-audit --no-fund --loglevel=error \
    "@anthropic-ai/claude-code@$CLAUDE_CODE_VERSION" >/dev/null
fi
