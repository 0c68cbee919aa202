def check_min_cppstd(_conanfile, _standard):
    pass


def can_run(_conanfile):
    return True
