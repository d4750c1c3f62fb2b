# Makes the comments of a header such as Doxygen reads. What stands before all includes is about the file.
3s,^//,/// \\file\n///,
/^ *\/\/( |$)/ {
    # Indented by three: set as it stands.
    s,^( *)//   ([^ 0-9]),\1///     \2,
    t
    s,[\\@<],\\&,g
}
# What comes after a declaration on its line is about that.
s,^( *)//( |$),\1///\2,
s,([;\,{}] +)// ,\1///< ,
