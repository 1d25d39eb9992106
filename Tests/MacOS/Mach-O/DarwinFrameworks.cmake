# The view toolkit asks for the system's OpenGL, and none of our files do.
add_library(WrapOpenGL::WrapOpenGL INTERFACE IMPORTED GLOBAL)
