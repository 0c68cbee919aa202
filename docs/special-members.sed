# Puts a remark ahead of copies and moves that a header only declares or defaults, which do what they
# do everywhere: said here once, for the reference, and not in each header. A line stays one line, so
# that warnings name the right one.
s,^ +([A-Za-z]+)\(const \1&\)( = default)?;$,/** A copy of all that the other one holds. */ &,
s,^ +([A-Za-z]+)\(\1&&\)( noexcept| = default)?;$,/** Takes over what the other one holds. */ &,
s,^ +([A-Za-z]+)& operator=\(const \1&\)( = default)?;$,/** Copies all that the other one holds. */ &,
s,^ +([A-Za-z]+)& operator=\(\1&&\)( noexcept| = default)?;$,/** Takes over what the other one holds. */ &,
