"""What pyproject.toml can't say: the wheel holds a library of one system, and suits every Python."""

from setuptools import Distribution, setup
from wheel.bdist_wheel import bdist_wheel


class WithLibrary(Distribution):
    def has_ext_modules(self):
        return True


class ForEveryPython(bdist_wheel):
    def get_tag(self):
        return "py3", "none", super().get_tag()[2]


setup(distclass=WithLibrary, cmdclass={"bdist_wheel": ForEveryPython})
