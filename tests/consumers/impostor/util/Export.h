#error "the library's headers must find their own"
