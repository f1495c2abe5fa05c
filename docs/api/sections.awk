# Shows Doxygen each section of a header, "/* ---- Title ---- */", as a group of its own: a page each, also
# in man(3). Text below the title, within the same comment, introduces the group. Keeps the line numbers.
function name(title,    text) {
    text = FILENAME
    gsub(/.*\//, "", text)
    sub(/\.h$/, "", text)
    sub(/:.*/, "", title)
    text = text " " title
    gsub(/[^A-Za-z0-9]+/, "_", text)
    return text
}
/^\/\* ---- / {
    title = $0
    sub(/^\/\* ---- /, "", title)
    sub(/ *-+( \*\/)?$/, "", title)
    whole = /\*\/$/
    print (open ? "/** @} */ " : "") "/** @defgroup " name(title) " " title (whole ? " */ /** @{ */" : "")
    open = 1
    inside = !whole
    next
}
inside && /^ \*\/$/ { print " */ /** @{ */"; inside = 0; next }
inside && !/^ \*     / { gsub(/\\/, "\\\\\\\\") } # text, not an example
{ print }
END { if (open) print "/** @} */" }
