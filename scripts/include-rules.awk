# The judgement of scripts/check-includes. Reads the folder table, the list of files and the list
# of include lines (FILE:LINE:#include "PATH"), in this order; prints what breaks a rule and writes
# who includes whom to files.edges and folders.edges in the folder `work`.

function complain(text) {
    print text > "/dev/stderr"
    broken = 1
}

# The row of the table that a path belongs to: the longest one it begins with.
function row_of(path,    row, best) {
    for (row in allowed)
        if (index(path, row) == 1 && length(row) > length(best))
            best = row
    return best
}

# The row around all others that the path begins with.
function outermost_row_of(path,    row, best) {
    for (row in allowed)
        if (index(path, row) == 1 && (!best || length(row) < length(best)))
            best = row
    return best
}

function may_include(row, path,    i, count, list) {
    if (allowed[row] ~ /(^| )anything/ || row_of(path) == row)
        return 1
    count = split(allowed[row], list, "`")
    for (i = 2; i <= count; i += 2) # what stands between back quotes
        if (row_of(path) == list[i])
            return 1
    return 0
}

FNR == 1 { ++input }

input == 1 && /^\|.*may include/ { in_table = 1; next }
input == 1 && !/^\|/ { in_table = 0 }
input == 1 && in_table && split($0, column, "|") >= 4 && split(column[2], name, "`") == 3 {
    allowed[name[2]] = column[4]
}

input == 2 {
    exists[$0] = 1
    if (!row_of($0))
        complain($0 ": its folder has no row in the table of docs/architecture.md")
}

input == 3 {
    match($0, /:[0-9]+:/)
    file = substr($0, 1, RSTART - 1)
    place = substr($0, 1, RSTART + RLENGTH - 2)
    is_quoted = match($0, /"[^"]+"/) || 0
    if (!is_quoted && !match($0, /<[^>]+>/))
        next
    path = substr($0, RSTART + 1, RLENGTH - 2)
    if (path ~ /^(vstgui|vst24)\// && ("foundation/" path) in exists)
        path = "foundation/" path # the toolkit's include paths begin there
    if (is_quoted && path !~ /\// && file ~ /^foundation\/vst24\//)
        path = "foundation/vst24/" path # they name one another alone, for either include path
    if (!(path in exists)) {
        if (is_quoted)
            complain(place ": no file \"" path "\" seen from the project's folder")
        next
    }
    if (!may_include(row_of(file), path))
        complain(place ": " row_of(file) " may not include " row_of(path) " (" path ")")
    if (file == path)
        complain(place ": includes itself")
    print file, path > (work "/files.edges")
    if (outermost_row_of(file) != outermost_row_of(path))
        print outermost_row_of(file), outermost_row_of(path) > (work "/folders.edges")
}

END {
    printf "" > (work "/files.edges")
    printf "" > (work "/folders.edges")
    exit broken
}
