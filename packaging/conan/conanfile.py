"""Recipe for Conan 2; the sources are those of the tree that it lies in."""

import os

from conan import ConanFile
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy

required_conan_version = ">=2.0"


class FiguraConan(ConanFile):
    name = "figura"
    version = "1.0.0"
    description = "Retained-mode tree of 2D figures for Qt 6 desktop applications"
    topics = ("qt", "diagram", "graphics")
    package_type = "shared-library"
    settings = "os", "arch", "compiler", "build_type"

    def export_sources(self):
        root = os.path.join(self.recipe_folder, os.pardir, os.pardir)
        patterns = ("CMakeLists.txt", "cmake/*", "include/*", "src/*", "packaging/debian/copyright")
        for pattern in patterns:
            copy(self, pattern, src=root, dst=self.export_sources_folder)

    def layout(self):
        cmake_layout(self)

    def validate(self):
        check_min_cppstd(self, 20)

    def requirements(self):
        # The headers include those of Qt, and programs link it themselves. SVG is for the diagram
        # library.
        self.requires(
            "qt/[>=6.4 <7]",
            transitive_headers=True,
            transitive_libs=True,
            options={"shared": True, "qtsvg": True},
        )

    def generate(self):
        toolchain = CMakeToolchain(self)
        for option in ("TESTS", "EXAMPLES"):
            toolchain.cache_variables[f"FIGURA_BUILD_{option}"] = False
        toolchain.cache_variables["FIGURA_WARNINGS_AS_ERRORS"] = False
        toolchain.generate()
        CMakeDeps(self).generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        copy(
            self,
            "copyright",
            src=os.path.join(self.source_folder, "packaging", "debian"),
            dst=os.path.join(self.package_folder, "licenses"),
        )
        CMake(self).install()

    def package_info(self):
        # The package that CMake installs says it all, and better than one made up here.
        self.cpp_info.set_property("cmake_find_mode", "none")
        self.cpp_info.builddirs = [os.path.join("lib", "cmake", "Figura")]
        self.cpp_info.libs = ["figura_diagram", "figura"]
        self.cpp_info.includedirs = ["include", os.path.join("include", "figura", "forwarding")]
