# Takes the C++ examples out of one page: example N goes to NAME_N.cpp where it is a whole program,
# else as a function into NAME.cpp, whose main calls the one that it is told the number of. What
# example N has to print goes to NAME_N.expected. Variables: name, page (how errors call it), out.
function begin_example() {
    ++count
    text = ""
    first = FNR + 1
    printf "" > (out "/" name "_" count ".expected")
}

function end_example() {
    if (text ~ /int main\(/) {
        printf "#line %d \"%s\"\n%s", first, page, text > (out "/" name "_" count ".cpp")
        return
    }
    functions = functions sprintf("static void Example%d() {\n#line %d \"%s\"\n%s}\n", count, first,
                                  page, text)
    calls = calls sprintf("    if (number == %d) Example%d();\n", count, count)
}

/^```/ {
    if (block != "") {
        if (block == "cpp") end_example()
        before = block
        block = ""
    } else {
        block = $0 == "```" ? "plain" : substr($0, 4)
        if (block == "cpp") begin_example()
        else if (block == "text" && before == "cpp") block = "expected"
    }
    next
}
block == "cpp" { text = text $0 "\n" }
block == "expected" { print > (out "/" name "_" count ".expected") }

END {
    if (functions != "")
        printf "#include \"guide/around.h\"\n%sint main(int, char** words) {\n    " \
               "UseRuntimeMemory();\n    const int number = std::atoi(words[1]);\n%s}\n",
               functions, calls > (out "/" name ".cpp")
}
