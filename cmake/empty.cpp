// Deliberately empty: the source of a folder that holds only headers.
