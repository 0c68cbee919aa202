class ConanInvalidConfiguration(Exception):
    pass
