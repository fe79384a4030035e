"""Builds the consumer of the tests against the package."""

import os

from conan import ConanFile
from conan.tools.build import can_run
from conan.tools.cmake import CMake, cmake_layout


class FiguraTestConan(ConanFile):
    settings = "os", "arch", "compiler", "build_type"
    generators = "CMakeDeps", "CMakeToolchain"

    def requirements(self):
        self.requires(self.tested_reference_str)

    def layout(self):
        cmake_layout(self)

    def build(self):
        consumer = os.path.join(os.pardir, os.pardir, os.pardir, "tests", "install")
        cmake = CMake(self)
        cmake.configure(build_script_folder=consumer)
        cmake.build()

    def test(self):
        if can_run(self):
            program = os.path.join(self.cpp.build.bindir, "consumer")
            self.run(f"QT_QPA_PLATFORM=offscreen {program}", env="conanrun")
