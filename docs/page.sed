# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# What doxygen reads instead of a page: its title is its first line, so the comment with the licence becomes empty
# lines; and pictures and files are named as from the top folder, where scripts/docs takes them from.
1,/^-->$/s/.*//
s#\]\((\.\./)+([^)]*\.(png|cpp|h|qml|txt))\)#](\2)#g
s|\]\(pictures/|](docs/pictures/|g
