# Reads the names of source files and CMake lists of src/ and app/; prints file:line of each line that breaks a wall.
# A file is rules, tables or windows by the tavelin_library() that lists it, a header without a source by its name.

BEGIN {
    core = "^([a-z0-9_]+|Q(ByteArray|CommandLineParser|CryptographicHash|Date|DateTime|Dir|File|FileInfo|Hash|Json(Document|Object)|List|Locale|Map|Rect|"
    core = core "RegularExpression|Set|StandardPaths|String.*|Time|Variant|tGlobal))$"
}

function stem(path) {
    sub(/\.[^.\/]*$/, "", path)
    return path
}

function folder(path) {
    sub(/\/[^\/]*$/, "", path)
    return path
}

function kind(path) {
    if (path ~ /^platform\//) { return "platform" }
    if (stem(path) in library) { return library[stem(path)] }
    return path ~ /Tables\.h$/ ? "tables" : (path ~ /\/(Frm|Grille|ui_)[^\/]*$/ ? "windows" : "rules")
}

function broken(wall) {
    printf "%s:%d: %s: %s\n", FILENAME, FNR, wall, $0
    faults++
}

function check_include(header,    its, to) {
    if (header ~ /^(com\/sun\/star|rtl|osl|sal|uno|typelib|cppu|cppuhelper|salhelper)\//) {
        if (own !~ /^platform\/word\/office\//) { broken("the office's interface stays inside tavelin-word") }
        return
    }
    if (header ~ /^platform\/word\/office\// && own !~ /^platform\/word\/office\//) {
        broken("tavelin-word is a program of its own")
    }
    if (header !~ /\// || header ~ /^sys\//) {
        if (header == "sqlite3.h" && own !~ /^platform\/db\/Sqlite/) { broken("SQLite stays inside its engine") }
        if (header == "libpq-fe.h" && own !~ /^platform\/db\/Postgres/) { broken("PostgreSQL stays inside its engine") }
        # the compiler finds no widget for their sources; a header of theirs may be read by windows alone
        if (mine ~ /rules|tables/ && header !~ core) {
            broken("rules and tables know Qt Core and the standard library only")
        }
        return
    }
    its = kind(header)
    to = folder(header)
    if (to != folder(own)) { uses[folder(own) " " to] = FILENAME ":" FNR }
    if (to == "start" && own !~ /^(start|app)\//) { broken("start is the top floor") }
    if (mine == "platform" && its != "platform") { broken("the platform knows no room above") }
    if (mine == "rules" && its != "rules" && header !~ /^platform\/(printing\/Page|word\/Verbs)\.h$/) {
        broken("rules know rules only, and the page and the verbs that they compose")
    }
    if (mine == "tables" && its != "rules" && its != "tables" && to != "platform/db") {
        broken("tables know rules, tables and the database only")
    }
    if (mine == "windows" && header == "platform/db/SqlText.h") { broken("windows hold no SQL") }
}

FILENAME ~ /CMakeLists\.txt$/ {
    gsub(/[()]/, " & ")
    for (i = 1; i <= NF; i++) {
        if ($i == "SOURCES" || $i == "LINK" || $i == ")") { listing = $i == "SOURCES" }
        else if (listing) { library[substr(folder(FILENAME), 5) "/" stem($i)] = room }
        else if ($i ~ /_(rules|tables|windows)$/) { room = substr($i, index($i, "_") + 1) }
    }
    next
}

FNR == 1 {
    files++
    own = FILENAME
    sub(/^src\//, "", own)
    mine = own ~ /^app\// ? "windows" : kind(own)
}
/^[ \t]*#[ \t]*include/ {
    header = $0
    sub(/^[^<"]*[<"]/, "", header)
    sub(/[>"].*/, "", header)
    check_include(header)
    next
}
{
    sub(/(^|[^:])\/\/.*/, "")
    if (/QMessageBox/ && own !~ /^platform\/ui\/Messages/) { broken("message boxes are shown by platform/ui/Messages") }
    if (/current(Date|Time|DateTime|DateTimeUtc|SecsSinceEpoch|MSecsSinceEpoch) *\(/ && own !~ /^(practice\/Environnement|start\/Lancement)\./) {
        broken("the time comes from the practice's clock")
    }
    if (mine == "windows" && (/SqlText/ || tolower($0) ~ /"[ (]*(select|insert|update|delete)[ "]/)) { broken("windows hold no SQL") }
}

# Folders that use no folder left are taken away until none goes: what remains goes round in a circle.
END {
    do {
        delete busy
        for (use in uses) {
            split(use, ends)
            busy[ends[1]]
        }
        gone = 0
        for (use in uses) {
            split(use, ends)
            if (!(ends[2] in busy)) {
                delete uses[use]
                gone++
            }
        }
    } while (gone)
    for (use in uses) {
        printf "%s: the folders go round in a circle, %s\n", uses[use], use
        faults++
    }
    printf "%d files, %d faults\n", files, faults
    exit files == 0 || faults > 0
}
