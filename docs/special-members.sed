# Puts a remark ahead of constructors and assignments of a value, which do what they do everywhere: it
# is said here once, for the reference, and not in each header. What has a remark keeps its own. A
# line stays one line, so that warnings name the right one.
:remark
/^ *\/\/\//{
n
/^ *\/\/\//b remark
b
}
s,^ +Data[A-Za-z]+\(\);$,/** Every field has its default. */ &,
s,^ +([A-Za-z]+)\(const \1&\)( = default)?;$,/** A copy of all that the other one holds. */ &,
s,^ +([A-Za-z]+)\(\1&&\)( noexcept| = default)?;$,/** Takes over what the other one holds. */ &,
s,^ +([A-Za-z]+)& operator=\(const \1&\)( = default)?;$,/** Copies all that the other one holds. */ &,
s,^ +([A-Za-z]+)& operator=\(\1&&\)( noexcept| = default)?;$,/** Takes over what the other one holds. */ &,
