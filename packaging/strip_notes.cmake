# Run by CPack on the staged files before they are packed: removes from every ELF file
# the sections Debian's own packages go without (the compilers' .comment and .note), and
# from the module the symbols no one links against, as dh_strip does.
find_program(strip_program strip REQUIRED)
file(GLOB_RECURSE staged LIST_DIRECTORIES false "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*")
foreach(path IN LISTS staged)
    if(IS_SYMLINK "${path}")
        continue()
    endif()
    file(READ "${path}" magic LIMIT 4 HEX)
    if(NOT magic STREQUAL "7f454c46")
        continue()
    endif()
    set(options --remove-section=.comment --remove-section=.note)
    if(path MATCHES "\\.so$")
        list(APPEND options --strip-unneeded)
    endif()
    execute_process(COMMAND ${strip_program} ${options} "${path}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
