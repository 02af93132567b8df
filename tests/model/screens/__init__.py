"""All screens: what the modules of this folder define."""

import importlib
import pkgutil

from screen import Screen


def defined_in(module):
    classes = (each for each in vars(module).values() if isinstance(each, type) and issubclass(each, Screen))
    return [each for each in classes if each.codes and each.__module__ == module.__name__]


FORMS = sorted((form for found in pkgutil.iter_modules(__path__, __name__ + '.')
                for form in defined_in(importlib.import_module(found.name))), key=lambda form: form.codes)
