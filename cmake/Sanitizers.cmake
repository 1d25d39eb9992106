if(TESSEL_SANITIZERS)
    add_compile_options(-fsanitize=${TESSEL_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${TESSEL_SANITIZERS})
endif()
