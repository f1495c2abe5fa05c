# Reads the @retval comments of oruSdk.h, and writes what each operation returns and when, as C strings of one line
# each: ">" and the operation, then its codes: "47 activationFlag is neither 0 nor 1".

function flush() {
    if (text == "") return
    gsub(/\\/, "\\\\", text)
    gsub(/"/, "\\\"", text)
    rows[++count] = text
    text = ""
}

/^\/\*\*/ { count = 0; text = ""; inside = 1 }

inside && /@/ { flush() }

inside && /^ \* @retval/ {
    sub(/^ \* @retval +/, "")
    text = $0
    sub(/ +/, " ", text)
    if (text !~ /^[0-9]+ ./) { print FILENAME ": no code and condition: " text > "/dev/stderr"; exit 1 }
    next
}

inside && text != "" && !/\*\// {
    sub(/^ *\* */, "")
    text = text " " $0
}

/\*\// { flush(); inside = 0 }

/^ORUSDK_API [^=]*\(/ && count > 0 {
    name = $0
    sub(/\(.*$/, "", name)
    sub(/^.*[ *]/, "", name)
    print "\">" name "\\n\""
    for (i = 1; i <= count; ++i) print "\"" rows[i] "\\n\""
    count = 0
}
