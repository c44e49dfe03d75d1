# Reads the names of source files and CMake lists; prints file:line of each line that breaks a wall.
# A subsystem's file is rules, tables or windows: its library tells, else its name, else it is rules.
# (A header without a .cpp has a library once that library's SOURCES list it.)

function base(path) {
    sub(/.*\//, "", path)
    return path
}

function stem(path) {
    sub(/\.[^.\/]*$/, "", path)
    return path
}

function kind_by_name(name) {
    if (name ~ /Tables\.[a-z]+$/) { return "tables" }
    if (name ~ /^(Frm|Grille|Main|VariablesGlobales|ui_)/) { return "windows" }
    return ""
}

# The kind of a file of a subsystem, its path counted from src/.
function kind(path,    by_name) {
    if (stem(path) in library) { return library[stem(path)] }
    by_name = kind_by_name(base(path))
    return by_name == "" ? "rules" : by_name
}

# Notes the sources of each tavelin_library(<subsystem>_<kind> SOURCES … LINK …).
function read_libraries(file,    folder, text, line, words, n, i, its_kind, in_sources) {
    folder = file
    sub(/^src\//, "", folder)
    sub(/CMakeLists\.txt$/, "", folder)
    while ((getline line < file) > 0) {
        sub(/#.*/, "", line)
        text = text " " line
    }
    close(file)
    gsub(/[()]/, " & ", text)
    n = split(text, words, /[ \t]+/)
    for (i = 1; i <= n; i++) {
        if (words[i] ~ /_(rules|tables|windows)$/ && words[i - 2] == "tavelin_library") {
            its_kind = words[i]
            sub(/.*_/, "", its_kind)
        } else if (words[i] == "SOURCES") {
            in_sources = 1
        } else if (words[i] == "LINK" || words[i] == ")") {
            in_sources = 0
        } else if (in_sources && its_kind != "") {
            library[folder stem(words[i])] = its_kind
        }
        if (words[i] == ")") { its_kind = "" }
    }
}

function broken(wall) {
    printf "%s:%d: %s: %s\n", file, line_number, wall, line
    faults++
}

function is_standard(header) { return header ~ /^[a-z0-9_]+$/ }

function is_qtcore(header,    path, ignored, found) {
    if (header ~ /\//) { return header ~ /^QtCore\// }
    path = qtcore "/" header
    found = (getline ignored < path) >= 0
    close(path)
    return found
}

function check_include(header,    of_subsystem) {
    if (base(header) == "FrmEntree.h" && file !~ /^(app\/|src\/start\/(FrmEntree|Lancement))/) {
        broken("the main window is the top floor")
    }
    if (base(header) == "sqlite3.h" && file !~ /^src\/platform\/db\/Sqlite[^\/]*$/) {
        broken("SQLite stays inside its engine")
    }
    if (own_kind == "platform" && header ~ /\// && header !~ /^(platform|Qt[A-Za-z]*|sys)\//) {
        broken("the platform layer knows no subsystem")
    }
    if (own_kind == "windows" && header == "platform/db/SqlText.h") {
        broken("windows hold no SQL")
    }
    if (own_kind != "rules" && own_kind != "tables" || is_standard(header) || is_qtcore(header)) { return }
    if (line ~ /include *"[^\/]*$/) { header = own_folder header }
    of_subsystem = header ~ /^[a-z]+\/[^\/]+$/ && header !~ /^platform\//
    if (own_kind == "rules" && !(of_subsystem && kind(header) == "rules")) {
        broken("rules include Qt Core, the standard library and rules only")
    }
    if (own_kind == "tables" && header !~ /^platform\/(db|files)\// &&
        !(of_subsystem && kind(header) != "windows")) {
        broken("tables include Qt Core, the standard library, rules and platform/db only")
    }
}

function check_words(code) {
    if (code ~ /QMessageBox/ && file !~ /^src\/platform\/ui\/Messages\.[a-z]+$/) {
        broken("message boxes are shown by platform/ui/Messages")
    }
    if (own_kind != "platform" && file !~ /\/start\/(VariablesGlobales|Lancement)\.[a-z]+$/ &&
        code ~ /current(Date|Time|DateTime|DateTimeUtc|SecsSinceEpoch|MSecsSinceEpoch) *\(/) {
        broken("the time comes from the shared state's clock")
    }
    if (own_kind == "windows" &&
        (code ~ /SqlText/ || tolower(code) ~ /"[ (]*(select|insert|update|delete)[ "]/)) {
        broken("windows hold no SQL")
    }
}

function check(    header, code, by_name) {
    own_folder = file
    sub(/[^\/]*$/, "", own_folder)
    sub(/^src\//, "", own_folder)
    own_kind = file ~ /^app\// ? "windows" : file ~ /^src\/platform\// ? "platform" : kind(own_folder base(file))
    by_name = kind_by_name(base(file))
    while ((getline line < file) > 0) {
        if (++line_number == 1 && own_kind != "platform" && by_name != "" && by_name != own_kind) {
            broken("its name and its library tell two kinds")
        }
        if (line ~ /^[ \t]*#[ \t]*include[ \t]*[<"]/) {
            header = line
            sub(/^[^<"]*[<"](\.\.?\/)*/, "", header)
            sub(/[>"].*/, "", header)
            check_include(header)
            if (header ~ /SqlText\.h$/) { continue }
        }
        code = line
        sub(/(^|[^:])\/\/.*/, "", code)
        check_words(code)
    }
    close(file)
}

/CMakeLists\.txt$/ { read_libraries($0); next }
{ sources[++count] = $0 }

END {
    for (i = 1; i <= count; i++) {
        file = sources[i]
        line = ""
        line_number = 0
        check()
    }
    printf "%d files, %d faults\n", count, faults
    exit count == 0 || faults > 0
}
