"""The wheel serves every Python 3, but only the platform whose libraries it carries."""

from __future__ import annotations

import pathlib

from setuptools import Distribution, setup
from wheel.bdist_wheel import bdist_wheel

CARRIES_LIBRARIES = any(pathlib.Path("vestara/lib").glob("*.so.1"))


class WithLibraries(Distribution):  # type: ignore[misc, no-any-unimported]
    def has_ext_modules(self) -> bool:
        return CARRIES_LIBRARIES


class PlatformWheel(bdist_wheel):  # type: ignore[misc, no-any-unimported]
    def get_tag(self) -> tuple[str, str, str]:
        _, _, platform = super().get_tag()
        return "py3", "none", platform


setup(distclass=WithLibraries, cmdclass={"bdist_wheel": PlatformWheel})
