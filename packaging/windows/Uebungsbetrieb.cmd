@echo off
rem Starts the practice simulator and Zugblick in front of it. Settings and work folder are in
rem %LOCALAPPDATA%\zugblick-practice: a driver's own are never touched. Options go to the practice
rem simulator; --help lists them.
"%~dp0zugblick-practice.exe" --front "%~dp0Zugblick.exe" %*
if errorlevel 1 pause
