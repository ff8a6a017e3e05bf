# SPDX-License-Identifier: MIT
# Run with each build: cmake -DGIT= -DSOURCE= -DVERSION= -DTEMPLATE= -DOUTPUT= -P BuildNumber.cmake
# writes OUTPUT by TEMPLATE, with BUILD as the number of commits that led to the checkout SOURCE. It
# is empty without git, outside a checkout, and where part of the history is missing. A file that
# would say the same is not touched, so that nothing is compiled for it.
set(BUILD "")
if(GIT)
    # The folder above, where the sources were unpacked into another project's checkout.
    execute_process(COMMAND "${GIT}" rev-parse --show-toplevel --is-shallow-repository
        WORKING_DIRECTORY "${SOURCE}" OUTPUT_VARIABLE checkout ERROR_QUIET
        OUTPUT_STRIP_TRAILING_WHITESPACE)
    file(REAL_PATH "${SOURCE}" source)
    if(checkout STREQUAL "${source}\nfalse")
        execute_process(COMMAND "${GIT}" rev-list --count HEAD
            WORKING_DIRECTORY "${SOURCE}" OUTPUT_VARIABLE count ERROR_QUIET
            OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(count MATCHES "^[0-9]+$")
            set(BUILD "${count}")
        endif()
    endif()
endif()
configure_file("${TEMPLATE}" "${OUTPUT}" @ONLY)
