include(${PROJECT_SOURCE_DIR}/cmake/FiguraInstall.cmake)

figura_install_library(
    figura
    EXPORT FiguraTargets
    PKG_CONFIG figura
    DESCRIPTION "${PROJECT_DESCRIPTION}"
    REQUIRES "Qt6Core >= 6.4" Qt6Gui Qt6Widgets Qt6PrintSupport
)
