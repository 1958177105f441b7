# Writes the fenced blocks of a Markdown document that can be run into the folder `out`. N is the number of the block
# in the document:
#   ```cpp with a main()      N.program.cpp, a complete program
#   ```text right after it    N.output of that program, what it prints
#   ```console                N.console, lines "$ command" each followed by what the command prints
#   ```LANGUAGE FILE          FILE, which the programs and commands find in their working directory; a FILE with a
#                             slash is a file of the project that the document shows, see check-shown-files, and is
#                             found there by what stands behind its last slash
function finish() {
    if (language == "cpp" && text ~ /int main\(/) {
        program = block
        write(block ".program.cpp")
    } else {
        if (language == "text" && program != 0)
            write(program ".output")
        else if (language == "console")
            write(block ".console")
        program = 0
    }
    sub(/.*\//, "", file)
    if (file != "")
        write(file)
}

function write(name) {
    printf "%s", text > (out "/" name)
    close(out "/" name)
}

/^```/ {
    if (inside) {
        finish()
        inside = 0
    } else {
        inside = 1
        block = sprintf("%02d", ++count)
        language = substr($1, 4)
        file = $2
        text = ""
    }
    next
}

inside { text = text $0 "\n" }
