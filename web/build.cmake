# Builds the browser interface, with NODE set, unless its packages could not be fetched.
if(NOT EXISTS node_modules/.package-lock.json)
    message(WARNING "Its packages are missing: the browser interface is not built.")
    return()
endif()
execute_process(COMMAND ${NODE} build.mjs COMMAND_ERROR_IS_FATAL ANY)
